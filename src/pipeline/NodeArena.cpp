// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/NodeArena.h"

#include <algorithm>

#include "pipeline/Node.h"

namespace marquell::pipeline {
namespace {

/// Large enough to make blocks few, small enough that one node kept of a block costs little.
constexpr std::size_t largestBlock = platform::hugePageSize;

constexpr std::size_t alignment = alignof(std::max_align_t);

constexpr std::size_t aligned(std::size_t size) {
    return (size + alignment - 1) & ~(alignment - 1);
}

}  // namespace

NodeBlock::NodeBlock(std::size_t size)
    : memory_(platform::largeMemory(size)), free_(size), next_(memory_.get()) {}

NodeBlock::~NodeBlock() {
    for (Node* node : nodes_) node->~Node();
}

std::byte* NodeBlock::take(std::size_t size) {
    if (aligned(size) > free_) return nullptr;
    free_ -= aligned(size);
    return std::exchange(next_, next_ + aligned(size));
}

void NodeArena::startBlock(std::size_t nodeSize) {
    block_ = std::make_shared<NodeBlock>(std::max(blockSize_, aligned(nodeSize)));
    blockSize_ = std::min(blockSize_ * 4, largestBlock);
}

}  // namespace marquell::pipeline
