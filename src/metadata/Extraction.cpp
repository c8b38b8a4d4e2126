// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/Extraction.h"

#include <algorithm>
#include <array>

#include "metadata/AVKitHelper.h"
#include "metadata/GetBasicInformationOperation.h"
#include "metadata/HashesHelper.h"
#include "metadata/ImageIOHelper.h"
#include "metadata/SpotlightHelper.h"

namespace marquell::metadata {
namespace {

using pipeline::Node;
using pipeline::StopCheck;

void retrieveBasic(std::span<Node* const> nodes, const NodeFinished& finished,
                   const StopCheck& shouldStop) {
    for (std::size_t i = 0; i < nodes.size() && !shouldStop(); ++i) {
        GetBasicInformationOperation::retrieveInformation(*nodes[i]);
        finished(i);
    }
}

void retrieveHashes(std::span<Node* const> nodes, const NodeFinished& finished,
                    const StopCheck& shouldStop) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (!HashesHelper::shared().retrieveAndStoreAllTagsFor(*nodes[i], shouldStop)) return;
        finished(i);
    }
}

/// By one of the helpers that take several nodes together.
template <typename Helper>
void retrieveTogether(std::span<Node* const> nodes, const NodeFinished& finished,
                      const StopCheck& shouldStop) {
    Helper::shared().retrieveAndStoreAllTagsFor(nodes, finished, shouldStop);
}

// Looking at an entry takes a microsecond. A helper answers within fifty to several hundred, and
// has two requests under way per core at the very least. A file's content may take minutes.
constexpr std::array extractions = {
    Extraction{MetadataSource::basic, 4, 256, &retrieveBasic},
    Extraction{MetadataSource::imageIO, 0, 16, &retrieveTogether<ImageIOHelper>},
    Extraction{MetadataSource::avKit, 0, 16, &retrieveTogether<AVKitHelper>},
    Extraction{MetadataSource::spotlight, 0, 16, &retrieveTogether<SpotlightHelper>},
    Extraction{MetadataSource::hashes, 0, 1, &retrieveHashes},
};

}  // namespace

const Extraction* extractionOf(MetadataSource source) {
    const auto* const found =
        std::find_if(extractions.begin(), extractions.end(),
                     [source](const Extraction& row) { return row.source == source; });
    return found != extractions.end() ? found : nullptr;
}

}  // namespace marquell::metadata
