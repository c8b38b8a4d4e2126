// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/RunAhead.h"

#include <algorithm>
#include <utility>

#include "metadata/DataCoordinator.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/NodePrefetch.h"
#include "platform/Workers.h"

namespace marquell::metadata {
namespace {

using pipeline::Column;
using pipeline::Node;

/// Looking at an entry takes a microsecond, too little to hand out singly; reading a file's content
/// takes long enough to be shared file by file.
constexpr std::size_t entriesPerBlock = 256;

std::vector<MetadataSource> neededSources(const std::vector<Column>& columns) {
    std::vector<MetadataSource> sources;
    for (const Column& column : columns) {
        if (column.origin != Column::Origin::source) continue;
        if (!DataCoordinator::delivers(*column.source)) continue;
        if (std::find(sources.begin(), sources.end(), *column.source) == sources.end()) {
            sources.push_back(*column.source);
        }
    }
    return sources;
}

bool readsContent(const std::vector<MetadataSource>& sources) {
    return std::any_of(sources.begin(), sources.end(),
                       [](MetadataSource source) { return source != MetadataSource::basic; });
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
      blockSize_(readsContent(sources_) ? 1 : entriesPerBlock) {
    const bool isNeeded = !sources_.empty() || readsTags_;
    const std::size_t blocks = (files.size() + blockSize_ - 1) / blockSize_;
    const std::size_t workers = std::min<std::size_t>(platform::workerCount(), blocks);
    if (!isNeeded || workers < 2) return;
    isDone_ = std::vector<std::atomic<std::uint8_t>>(blocks);
    for (std::size_t i = 0; i < workers; ++i) {
        if (!platform::startThread(threads_, [this] { work(); })) return;
    }
}

RunAhead::~RunAhead() {
    stopped_.store(true, std::memory_order_relaxed);
    for (std::thread& thread : threads_) thread.join();
}

void RunAhead::work() {
    while (!stopped_.load(std::memory_order_relaxed) && !isUnwanted_() && extractNextBlock()) {
    }
}

/// False when there is no block left.
bool RunAhead::extractNextBlock() {
    const std::size_t block = nextBlock_.fetch_add(1, std::memory_order_relaxed);
    if (block >= isDone_.size()) return false;
    const std::size_t end = std::min((block + 1) * blockSize_, files_.size());
    for (std::size_t i = block * blockSize_; i < end && !isUnwanted_(); ++i) {
        pipeline::prefetchAhead(files_, i);
        extract(*files_[i]);
    }
    isDone_[block].store(1, std::memory_order_release);
    isDone_[block].notify_all();
    return true;
}

void RunAhead::extract(Node& node) const {
    for (const MetadataSource source : sources_) {
        if (MetadataStorage::shared().isRetrieved(node.pathKey(), source)) continue;
        DataCoordinator::shared().retrieveDataSynchronously(node, source);
    }
    if (readsTags_) node.tags();
}

bool RunAhead::isReady(const Node& node) const {
    if (readsTags_ && !node.areTagsRead()) return false;
    return std::all_of(sources_.begin(), sources_.end(), [&node](MetadataSource source) {
        return MetadataStorage::shared().isRetrieved(node.pathKey(), source);
    });
}

bool RunAhead::waitFor(std::size_t index) {
    if (!threads_.empty()) {
        const std::size_t block = index / blockSize_;
        while (nextBlock_.load(std::memory_order_relaxed) <= block) extractNextBlock();
        isDone_[block].wait(0, std::memory_order_acquire);
    }
    return !isUnwanted_() || isReady(*files_[index]);
}

}  // namespace marquell::metadata
