// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DataCoordinator.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "metadata/Extraction.h"
#include "metadata/MetadataStorage.h"

namespace marquell::metadata {
namespace {

using pipeline::Node;

}  // namespace

struct DataCoordinator::Request {
    std::shared_ptr<Node> node;
    MetadataSource source;
    int queuePriority;
};

/// Stands in the queue for one request, whichever is the first in order when its turn comes.
class DataCoordinator::TakeNextRequest : public platform::Operation {
public:
    explicit TakeNextRequest(DataCoordinator& coordinator) : coordinator_(coordinator) {}
    void main() override {
        if (isCancelled()) return;
        coordinator_.runNext([this] { return isAbandoned(); });
    }

private:
    DataCoordinator& coordinator_;
};

DataCoordinator::DataCoordinator() = default;
DataCoordinator::~DataCoordinator() = default;

DataCoordinator& DataCoordinator::shared() {
    static DataCoordinator coordinator;
    return coordinator;
}

void DataCoordinator::retrieveDataAsynchronously(std::shared_ptr<Node> node,
                                                 MetadataSource source) {
    const Extraction* extraction = extractionOf(source);
    if (extraction == nullptr) return;
    // Those of an earlier request must not have this one dropped.
    node->forgetLostObservers(source);
    const std::lock_guard lock(mutex_);
    const auto same = std::find_if(waiting_.begin(), waiting_.end(), [&](const auto& request) {
        return request->node == node && request->source == source;
    });
    if (same != waiting_.end()) {
        std::rotate(same, same + 1, waiting_.end());
        return;
    }
    waiting_.push_back(
        std::make_shared<Request>(Request{std::move(node), source, extraction->queuePriority}));
    // Without a thread for it the request is dropped; the next one tries again.
    if (!queue_.addOperation(std::make_shared<TakeNextRequest>(*this))) waiting_.pop_back();
}

DataCoordinator::Requests DataCoordinator::takeNext() {
    const std::lock_guard lock(mutex_);
    std::erase_if(waiting_, [](const auto& request) {
        if (request->node->interest(request->source) != pipeline::ObserverInterest::lost) {
            return false;
        }
        request->node->forgetLostObservers(request->source);
        return true;
    });
    const auto rank = [](const auto& request) {
        const bool awaited =
            request->node->interest(request->source) == pipeline::ObserverInterest::present;
        return std::pair(request->queuePriority, awaited);
    };
    const auto best =
        std::max_element(waiting_.rbegin(), waiting_.rend(),
                         [&rank](const auto& a, const auto& b) { return rank(a) < rank(b); });
    if (best == waiting_.rend()) return {};
    const auto source = (*best)->source;
    const auto bestRank = rank(*best);
    const std::size_t most = extractionOf(source)->nodesAtOnce;
    Requests taken;
    for (auto each = best; each != waiting_.rend() && taken.size() < most; ++each) {
        if ((*each)->source == source && rank(*each) == bestRank) taken.push_back(*each);
    }
    std::erase_if(waiting_, [&taken](const auto& request) {
        return std::find(taken.begin(), taken.end(), request) != taken.end();
    });
    return taken;
}

void DataCoordinator::runNext(const pipeline::StopCheck& isClosing) {
    const Requests requests = takeNext();
    // Hours of reading are not for somebody who has looked away since.
    const auto isLost = [](const auto& request) {
        return request->node->interest(request->source) == pipeline::ObserverInterest::lost;
    };
    if (requests.size() > 1) {
        std::vector<Node*> nodes;
        for (const auto& request : requests) nodes.push_back(request->node.get());
        retrieveDataAhead(nodes, requests.front()->source, [&] {
            return isClosing() || std::all_of(requests.begin(), requests.end(), isLost);
        });
    }
    // Also those that another thread is at, or has been.
    for (const auto& request : requests) {
        retrieveDataSynchronously(*request->node, request->source,
                                  [&] { return isClosing() || isLost(request); });
    }
}

void DataCoordinator::retrieveDataSynchronously(Node& node, MetadataSource source,
                                                const pipeline::StopCheck& shouldStop) {
    const Extraction* extraction = extractionOf(source);
    if (extraction == nullptr) return;
    MetadataStorage& storage = MetadataStorage::shared();
    const std::array nodes = {&node};
    // Once, unless the store is cleared meanwhile.
    while (const auto ticket = storage.beginRetrieval(node.pathKey(), source, shouldStop)) {
        bool isFinished = false;
        extraction->retrieve(
            nodes, [&isFinished](std::size_t) { isFinished = true; }, shouldStop);
        if (!isFinished) {
            storage.cancelRetrieval(node.pathKey(), source, *ticket);
            return;
        }
        if (storage.finishRetrieval(node.pathKey(), source, *ticket)) break;
    }
    // Also when another node of the same path had it found: who waits for this one waits still.
    if (storage.isRetrieved(node.pathKey(), source)) node.signalDataIsNowReady(source);
}

void DataCoordinator::retrieveDataAhead(std::span<Node* const> nodes, MetadataSource source,
                                        const pipeline::StopCheck& shouldStop) {
    const Extraction* extraction = extractionOf(source);
    if (extraction == nullptr) return;
    MetadataStorage& storage = MetadataStorage::shared();
    std::vector<Node*> taken;
    std::vector<std::optional<MetadataStorage::Ticket>> tickets;
    for (Node* const node : nodes) {
        if (const auto ticket = storage.tryBeginRetrieval(node->pathKey(), source)) {
            taken.push_back(node);
            tickets.emplace_back(ticket);
        }
    }
    if (taken.empty()) return;
    extraction->retrieve(
        taken,
        [&](std::size_t i) {
            const auto ticket = std::exchange(tickets[i], std::nullopt);
            // Cleared meanwhile, it is extracted anew by whoever reads it.
            if (!storage.finishRetrieval(taken[i]->pathKey(), source, *ticket)) return;
            taken[i]->signalDataIsNowReady(source);
        },
        shouldStop);
    for (std::size_t i = 0; i < taken.size(); ++i) {
        if (tickets[i]) storage.cancelRetrieval(taken[i]->pathKey(), source, *tickets[i]);
    }
}

}  // namespace marquell::metadata
