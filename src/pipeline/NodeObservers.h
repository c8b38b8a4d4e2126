// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "metadata/DataIsReadyObserver.h"
#include "metadata/MetadataSource.h"

namespace marquell::pipeline {

/// Who waits for which source of a node.
struct NodeObservers {
    using Reference = std::shared_ptr<metadata::WeakDataIsReadyObserverReference>;

    struct OfSource {
        std::vector<Reference> references;
        bool everAny = false;  ///< since the source last finished or was asked for anew
    };

    std::array<OfSource, metadata::allMetadataSources.size()> dataReadyObservers;

    OfSource& of(metadata::MetadataSource source) {
        return dataReadyObservers[static_cast<std::size_t>(source)];
    }
};

}  // namespace marquell::pipeline
