// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "pipeline/Node.h"

namespace marquell::pipeline {

/// To be called for each row of a walk through a list. A sorted list visits its nodes in no order
/// of memory; without asking for them some rows in advance, fetching a node takes longer than
/// writing its row. A node tells where its metadata is, which therefore comes nearer to its row.
inline void prefetchAhead(const std::vector<std::shared_ptr<Node>>& files, std::size_t row) {
    constexpr std::size_t nodesAhead = 24;
    constexpr std::size_t metadataAhead = 12;
    if (row + nodesAhead >= files.size()) return;
    const auto* node = reinterpret_cast<const char*>(files[row + nodesAhead].get());
    __builtin_prefetch(node);
    __builtin_prefetch(node + 64);
    __builtin_prefetch(node + 128);
    files[row + metadataAhead]->prefetchMetadata();
}

}  // namespace marquell::pipeline
