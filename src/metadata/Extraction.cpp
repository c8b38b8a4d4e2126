// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/Extraction.h"

#include <algorithm>
#include <array>

#include "metadata/GetBasicInformationOperation.h"
#include "metadata/HashesHelper.h"
#include "metadata/ImageIOHelper.h"

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

void retrieveImages(std::span<Node* const> nodes, const NodeFinished& finished,
                    const StopCheck& shouldStop) {
    ImageIOHelper::shared().retrieveAndStoreAllTagsFor(nodes, finished, shouldStop);
}

// Looking at an entry takes a microsecond. A helper answers within fifty to several hundred, and
// has two requests under way per core at the very least. A file's content may take minutes.
constexpr std::array extractions = {
    Extraction{MetadataSource::basic, 4, 256, &retrieveBasic},
    Extraction{MetadataSource::imageIO, 0, 16, &retrieveImages},
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
