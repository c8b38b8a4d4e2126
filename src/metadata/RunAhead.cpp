// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/RunAhead.h"

#include <algorithm>
#include <utility>

#include "metadata/DataCoordinator.h"
#include "metadata/Extraction.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/NodePrefetch.h"
#include "platform/Workers.h"

namespace marquell::metadata {
namespace {

using pipeline::Column;
using pipeline::Node;

/// Of nodes whose tags alone are read; too little work to hand out singly.
constexpr std::size_t largestBlock = 256;

std::vector<MetadataSource> neededSources(const std::vector<Column>& columns) {
    std::vector<MetadataSource> sources;
    for (const Column& column : columns) {
        if (column.origin != Column::Origin::source) continue;
        if (std::find(sources.begin(), sources.end(), *column.source) == sources.end()) {
            sources.push_back(*column.source);
        }
    }
    return sources;
}

std::size_t nodesPerBlock(const std::vector<MetadataSource>& sources) {
    std::size_t nodes = largestBlock;
    for (const MetadataSource source : sources) {
        nodes = std::min(nodes, extractionOf(source)->nodesAtOnce);
    }
    return nodes;
}

}  // namespace

RunAhead::RunAhead(const std::vector<std::shared_ptr<Node>>& files,
                   const std::vector<Column>& columns, pipeline::StopCheck isUnwanted)
    : files_(files),
      sources_(neededSources(columns)),
      isUnwanted_(std::move(isUnwanted)),
      readsTags_(
          std::any_of(columns.begin(), columns.end(),
                      [](const Column& column) { return column.origin == Column::Origin::tags; })),
      readsContents_(
          std::any_of(sources_.begin(), sources_.end(),
                      [](MetadataSource source) { return source != MetadataSource::basic; })),
      blockSize_(nodesPerBlock(sources_)) {
    if (sources_.empty() && !readsTags_) return;
    const std::size_t blocks = (files.size() + blockSize_ - 1) / blockSize_;
    isDone_ = std::vector<std::atomic<std::uint8_t>>(blocks);
    const std::size_t workers = std::min<std::size_t>(platform::workerCount(), blocks);
    if (workers < 2) return;
    for (std::size_t i = 0; i < workers; ++i) {
        if (!platform::startThread(threads_, [this] { work(); })) return;
    }
}

RunAhead::~RunAhead() {
    stopped_.store(true, std::memory_order_relaxed);
    for (std::thread& thread : threads_) thread.join();
}

void RunAhead::work() {
    while (!shouldStop() && extractNextBlock()) {
    }
}

/// False when there is no block left.
bool RunAhead::extractNextBlock() {
    const std::size_t block = nextBlock_.fetch_add(1, std::memory_order_relaxed);
    if (block >= isDone_.size()) return false;
    const std::size_t end = std::min((block + 1) * blockSize_, files_.size());
    extract(block * blockSize_, end);
    isDone_[block].store(1, std::memory_order_release);
    isDone_[block].notify_all();
    return true;
}

void RunAhead::extract(std::size_t begin, std::size_t end) const {
    std::vector<Node*> nodes;
    for (std::size_t i = begin; i < end; ++i) {
        pipeline::prefetchAhead(files_, i);
        nodes.push_back(files_[i].get());
    }
    for (const MetadataSource source : sources_) {
        DataCoordinator::shared().retrieveDataAhead(nodes, source, [this] { return shouldStop(); });
    }
    if (!readsTags_) return;
    for (Node* const node : nodes) {
        if (isUnwanted_()) return;
        node->tags();
    }
}

bool RunAhead::shouldStop() const {
    return stopped_.load(std::memory_order_relaxed) || isUnwanted_();
}

bool RunAhead::isReady(const Node& node) const {
    if (readsTags_ && !node.areTagsRead()) return false;
    return std::all_of(sources_.begin(), sources_.end(), [&node](MetadataSource source) {
        return MetadataStorage::shared().isRetrieved(node.pathKey(), source);
    });
}

bool RunAhead::waitFor(std::size_t index) {
    if (!isDone_.empty()) {
        const std::size_t block = index / blockSize_;
        while (nextBlock_.load(std::memory_order_relaxed) <= block) extractNextBlock();
        isDone_[block].wait(0, std::memory_order_acquire);
    }
    // Somebody else may be at a file for long; the others are looked at as fast.
    if (readsContents_) waitForContents(*files_[index]);
    return !isUnwanted_() || isReady(*files_[index]);
}

void RunAhead::waitForContents(Node& node) const {
    for (const MetadataSource source : sources_) {
        if (MetadataStorage::shared().isRetrieved(node.pathKey(), source)) continue;
        DataCoordinator::shared().retrieveDataSynchronously(node, source, isUnwanted_);
    }
}

}  // namespace marquell::metadata
