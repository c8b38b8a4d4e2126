// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include "metadata/MetadataSource.h"
#include "pipeline/Column.h"
#include "pipeline/KeySort.h"
#include "pipeline/Node.h"

namespace marquell::metadata {

/// Extraction that runs ahead of a stage: while the stage walks its list from front to end,
/// platform::workerCount() threads have what its columns need ready for the nodes that come next;
/// where there is but one, the stage's own thread does so, block by block.
/// What the stage reads is the same without it. Made and used by the stage's thread; stops when it
/// is destroyed.
///
/// A stage that nobody waits for any more may still read what is stored, but has no files read for
/// it: `isUnwanted`, called from any thread, tells so, and once true stays true.
class RunAhead {
public:
    /// `files` must outlive this object. Starts no thread when no column needs extraction or the
    /// list is short.
    RunAhead(const std::vector<std::shared_ptr<pipeline::Node>>& files,
             const std::vector<pipeline::Column>& columns, pipeline::StopCheck isUnwanted);
    ~RunAhead();
    RunAhead(const RunAhead&) = delete;
    RunAhead& operator=(const RunAhead&) = delete;

    /// Returns when the values of files[index] are there, or can be had by whoever reads them;
    /// helps out rather than to wait for a thread that has not begun with them. False if they would
    /// have to be extracted for a stage that is unwanted.
    bool waitFor(std::size_t index);

private:
    void work();
    bool extractNextBlock();
    void extract(std::size_t begin, std::size_t end) const;
    bool shouldStop() const;
    bool isReady(const pipeline::Node& node) const;
    void waitForContents(pipeline::Node& node) const;

    const std::vector<std::shared_ptr<pipeline::Node>>& files_;
    std::vector<MetadataSource> sources_;
    const pipeline::StopCheck isUnwanted_;
    const bool readsTags_;
    const bool readsContents_;
    std::size_t blockSize_ = 1;

    std::atomic<bool> stopped_ = false;
    std::atomic<std::size_t> nextBlock_ = 0;         ///< the first that nobody has begun
    std::vector<std::atomic<std::uint8_t>> isDone_;  ///< by block
    std::vector<std::thread> threads_;
};

}  // namespace marquell::metadata
