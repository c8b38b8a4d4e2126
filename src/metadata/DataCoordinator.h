// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "metadata/MetadataSource.h"
#include "pipeline/KeySort.h"
#include "pipeline/Node.h"
#include "platform/OperationQueue.h"

namespace marquell::metadata {

/// Decides when a source runs for a node, and runs it once per file and not once per column. There
/// are three roads: cells of the window ask without waiting and are told; a stage asks and waits;
/// and ahead of a stage extraction already runs over the nodes that come next (RunAhead). The
/// `retrieved` flag in the store is the only record of what has run.
class DataCoordinator {
public:
    DataCoordinator();
    ~DataCoordinator();
    DataCoordinator(const DataCoordinator&) = delete;
    DataCoordinator& operator=(const DataCoordinator&) = delete;

    static DataCoordinator& shared();

    /// Has the source run for the node on the coordinator's own thread; at its end the node's
    /// observers are told. One extraction runs at a time, of as many requests for one source as are
    /// faster together. Of the waiting requests the order is
    /// priority (basic information first), then those whose observers still exist, then the newest;
    /// a request that had observers and has lost them all is dropped, since nobody looks any more.
    /// Asking again for what already waits makes it the newest, with observers yet to come. One
    /// that runs ends when its observers are gone. Any thread.
    void retrieveDataAsynchronously(std::shared_ptr<pipeline::Node> node, MetadataSource source);

    /// Runs the source on the caller's thread, unless it has finished with the node before; waits
    /// when another thread is at it. Does nothing for a source that nothing delivers. What
    /// `shouldStop` ends is as if never asked for.
    void retrieveDataSynchronously(
        pipeline::Node& node, MetadataSource source,
        const pipeline::StopCheck& shouldStop = [] { return false; });

    /// Runs the source for those of the nodes that it has not finished with and that no other
    /// thread is at, together where that is faster. What a stop has left out is as if never asked
    /// for. For the threads that run ahead of a stage.
    void retrieveDataAhead(std::span<pipeline::Node* const> nodes, MetadataSource source,
                           const pipeline::StopCheck& shouldStop);

private:
    struct Request;
    using Requests = std::vector<std::shared_ptr<const Request>>;
    class TakeNextRequest;

    void runNext(const pipeline::StopCheck& isClosing);
    Requests takeNext();

    std::mutex mutex_;
    Requests waiting_;                                   // guarded by mutex_, oldest first
    platform::OperationQueue queue_{"DataCoordinator"};  // last: stops before the rest goes
};

}  // namespace marquell::metadata
