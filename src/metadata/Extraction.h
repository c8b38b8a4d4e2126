// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "metadata/MetadataSource.h"
#include "pipeline/KeySort.h"
#include "pipeline/Node.h"

namespace marquell::metadata {

/// Told the place of each node that has all the values it will get.
using NodeFinished = std::function<void(std::size_t index)>;

/// What delivers a source's values.
struct Extraction {
    MetadataSource source;
    int queuePriority;  ///< higher goes first
    /// How many nodes are best extracted together: as many as pay for the cost of a turn, and no
    /// more, since they are one thread's work.
    std::size_t nodesAtOnce;
    /// Stores the values of some nodes and tells of each when it is finished. When `shouldStop`
    /// ends it early, of some it doesn't. Any thread, several at a time for different nodes.
    void (*retrieve)(std::span<pipeline::Node* const> nodes, const NodeFinished& finished,
                     const pipeline::StopCheck& shouldStop);
};

/// Null for a source that delivers nothing.
const Extraction* extractionOf(MetadataSource source);

}  // namespace marquell::metadata
