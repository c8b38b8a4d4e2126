// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/HashesHelper.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "metadata/MetadataStorage.h"
#include "platform/FileDigests.h"
#include "platform/ReadFailures.h"

namespace marquell::metadata {

HashesHelper& HashesHelper::shared() {
    static HashesHelper helper;
    return helper;
}

void HashesHelper::setWantedDigests(std::span<const std::string> keys) {
    for (std::size_t i = 0; i < platform::digestCount; ++i) {
        wanted_.set(i, std::find(keys.begin(), keys.end(), platform::digestNames[i]) != keys.end());
    }
}

bool HashesHelper::retrieveAndStoreAllTagsFor(const pipeline::Node& node,
                                              const std::function<bool()>& shouldStop) {
    if (wanted_.none()) return true;
    platform::FileDigests made =
        platform::digestsOfFile(std::string(node.absolutePath()), wanted_, shouldStop);
    if (made.isStopped) return false;
    if (made.error) platform::reportReadFailure(node.absolutePath(), made.error);
    for (std::size_t i = 0; i < platform::digestCount; ++i) {
        if (!made.texts[i]) continue;
        MetadataStorage::shared().store(node.pathKey(), MetadataSource::hashes,
                                        platform::digestNames[i], std::move(*made.texts[i]));
    }
    return true;
}

}  // namespace marquell::metadata
