// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/DataCoordinator.h"

#include <algorithm>
#include <array>
#include <utility>

#include "metadata/GetBasicInformationOperation.h"
#include "metadata/MetadataStorage.h"

namespace marquell::metadata {
namespace {

using pipeline::Node;

/// What delivers a source's values. A source without a row has none yet.
struct Extraction {
    MetadataSource source;
    int queuePriority;  ///< higher goes first
    void (*retrieve)(const Node& node);
};

constexpr std::array extractions = {
    Extraction{MetadataSource::basic, 4, &GetBasicInformationOperation::retrieveInformation},
};

const Extraction* extractionOf(MetadataSource source) {
    const auto found =
        std::find_if(extractions.begin(), extractions.end(),
                     [source](const Extraction& row) { return row.source == source; });
    return found != extractions.end() ? &*found : nullptr;
}

/// Sets the flag and tells the observers however the extraction ends; otherwise threads that wait
/// for it would wait for ever.
class Retrieval {
public:
    Retrieval(Node& node, MetadataSource source) : node_(node), source_(source) {}
    Retrieval(const Retrieval&) = delete;
    Retrieval& operator=(const Retrieval&) = delete;
    ~Retrieval() {
        MetadataStorage::shared().finishRetrieval(node_.pathKey(), source_);
        node_.signalDataIsNowReady(source_);
    }

private:
    Node& node_;
    MetadataSource source_;
};

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
        if (!isCancelled()) coordinator_.runNext();
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

bool DataCoordinator::delivers(MetadataSource source) { return extractionOf(source) != nullptr; }

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
    queue_.addOperation(std::make_shared<TakeNextRequest>(*this));
}

std::shared_ptr<const DataCoordinator::Request> DataCoordinator::takeNext() {
    const std::lock_guard lock(mutex_);
    std::erase_if(waiting_, [](const auto& request) {
        return request->node->interest(request->source) == pipeline::ObserverInterest::lost;
    });
    const auto rank = [](const auto& request) {
        const bool awaited =
            request->node->interest(request->source) == pipeline::ObserverInterest::present;
        return std::pair(request->queuePriority, awaited);
    };
    const auto best =
        std::max_element(waiting_.rbegin(), waiting_.rend(),
                         [&rank](const auto& a, const auto& b) { return rank(a) < rank(b); });
    if (best == waiting_.rend()) return nullptr;
    std::shared_ptr<const Request> taken = *best;
    waiting_.erase(std::next(best).base());
    return taken;
}

void DataCoordinator::runNext() {
    const std::shared_ptr<const Request> request = takeNext();
    if (request != nullptr) retrieveDataSynchronously(*request->node, request->source);
}

void DataCoordinator::retrieveDataSynchronously(Node& node, MetadataSource source) {
    const Extraction* extraction = extractionOf(source);
    if (extraction == nullptr) return;
    if (!MetadataStorage::shared().beginRetrieval(node.pathKey(), source)) {
        // Found already, under another node of the same path: whose observers wait may not be ours.
        node.signalDataIsNowReady(source);
        return;
    }
    const Retrieval retrieval(node, source);
    extraction->retrieve(node);
}

}  // namespace marquell::metadata
