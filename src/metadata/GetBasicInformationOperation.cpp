// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/GetBasicInformationOperation.h"

#include <string>

#include "metadata/MetadataStorage.h"
#include "platform/FileSystem.h"
#include "platform/ReadFailures.h"

namespace marquell::metadata {

void GetBasicInformationOperation::retrieveInformation(const pipeline::Node& node) {
    int error = 0;
    const auto attributes = platform::attributesOf(std::string(node.absolutePath()), error);
    if (attributes) {
        MetadataStorage::shared().storeBasicInformation(node.pathKey(), *attributes);
    } else {
        platform::reportReadFailure(node.absolutePath(), error);
    }
}

}  // namespace marquell::metadata
