// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/LargeMemory.h"

namespace marquell::pipeline {

class Node;

/// A piece of memory that holds nodes and their paths, and ends them all when the last reference to
/// any of them is gone.
class NodeBlock : public std::enable_shared_from_this<NodeBlock> {
public:
    explicit NodeBlock(std::size_t size);
    ~NodeBlock();
    NodeBlock(const NodeBlock&) = delete;
    NodeBlock& operator=(const NodeBlock&) = delete;

    /// Makes a node of the given kind; null when there is no room left for it.
    template <typename Kind>
    Kind* make(std::string_view name, std::string_view absolutePath,
               std::string_view relativePath) {
        std::byte* place = take(sizeof(Kind) + absolutePath.size());
        if (place == nullptr) return nullptr;
        auto* path = reinterpret_cast<char*>(place + sizeof(Kind));
        std::memcpy(path, absolutePath.data(), absolutePath.size());
        auto* node =
            new (place) Kind(*this, name.size(), {path, absolutePath.size()}, relativePath.size());
        nodes_.push_back(node);
        return node;
    }

private:
    std::byte* take(std::size_t size);

    platform::LargeMemory memory_;
    std::size_t free_;
    std::byte* next_;
    std::vector<Node*> nodes_;
};

/// Makes nodes by the million: a walk spends less on them than on two allocations each, and a list
/// of them is gone at once. Serves one thread; the nodes outlive it.
class NodeArena {
public:
    /// `name` is the last component of `absolutePath`, and `relativePath` the components before it
    /// that lead from the source to the containing folder: empty for a source itself and for what
    /// lies directly in it.
    template <typename Kind>
    std::shared_ptr<Node> make(std::string_view name, std::string_view absolutePath,
                               std::string_view relativePath) {
        Kind* node =
            block_ == nullptr ? nullptr : block_->make<Kind>(name, absolutePath, relativePath);
        if (node == nullptr) {
            startBlock(sizeof(Kind) + absolutePath.size());
            node = block_->make<Kind>(name, absolutePath, relativePath);
        }
        return {block_, node};
    }

private:
    void startBlock(std::size_t nodeSize);

    std::shared_ptr<NodeBlock> block_;
    std::size_t blockSize_ = 1024;
};

}  // namespace marquell::pipeline
