// SPDX-License-Identifier: GPL-3.0-or-later
// The half of Node that asks for metadata and tells who waits for it.

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "metadata/DataCoordinator.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/Node.h"
#include "pipeline/StripedLocks.h"
#include "pipeline/TextHelpers.h"
#include "platform/ByteCount.h"
#include "platform/DateFormatter.h"
#include "platform/MainQueue.h"
#include "platform/UnicodeText.h"

namespace marquell::pipeline {
namespace {

using metadata::DataCoordinator;
using metadata::DisplayStringWrapper;
using metadata::MetadataSource;
using metadata::MetadataStorage;
using metadata::None;
using metadata::WrappedMetaDataValue;

using Reference = NodeObservers::Reference;

StripedLocks& observerLocks() {
    static StripedLocks locks;
    return locks;
}

std::string displayDate(const platform::Date& date) {
    thread_local platform::DateFormatter formatter(platform::DateStyle::mediumDateShortTime);
    std::string text;
    formatter.append(text, date);
    return text;
}

/// How a cell shows a value.
struct DisplayText {
    std::string operator()(const metadata::StringValue& text) const {
        return withEncodedLineBreaksAndTabs(text);
    }
    std::string operator()(const metadata::DateValue& date) const { return displayDate(date); }
    std::string operator()(metadata::BoolValue value) const { return value ? "true" : "false"; }
    std::string operator()(metadata::NSInteger value) const {
        return platform::byteCountText(value);
    }
    std::string operator()(None) const { return {}; }
};

DisplayStringWrapper wrapper(const WrappedMetaDataValue& value) {
    if (std::holds_alternative<None>(value)) return {DisplayStringWrapper::Kind::noValue};
    return {DisplayStringWrapper::Kind::string, std::visit(DisplayText{}, value)};
}

}  // namespace

std::optional<WrappedMetaDataValue> Node::ownValue(const Column& column) const {
    switch (column.origin) {
        case Column::Origin::path:
            if (const auto part = column.pathPart(*this)) return text(*part);
            return None{};
        case Column::Origin::tags:
            if (const std::string* joined = tags()) return *joined;
            return None{};
        case Column::Origin::pathLength:
            return static_cast<metadata::NSInteger>(platform::characterCount(text(absolutePath())));
        case Column::Origin::nowhere:
            return None{};
        case Column::Origin::source:
            break;
    }
    return std::nullopt;
}

DisplayStringWrapper Node::getDisplayString(std::string_view forMetaDataKey) {
    const Column column(forMetaDataKey);
    if (const auto own = ownValue(column)) {
        // Of all integers the path's length alone is no size.
        if (const auto* length = std::get_if<metadata::NSInteger>(&*own)) {
            return {DisplayStringWrapper::Kind::string, std::to_string(*length)};
        }
        return wrapper(*own);
    }
    const auto value =
        MetadataStorage::shared().getValueIfRetrieved(pathKey(), column.key, *column.source);
    if (value) return wrapper(*value);
    DataCoordinator::shared().retrieveDataAsynchronously(shared(), *column.source);
    return {DisplayStringWrapper::Kind::notRetrievedYet};
}

WrappedMetaDataValue Node::extractedValueSync(const Column& column) {
    if (!column.source) return None{};
    MetadataStorage& storage = MetadataStorage::shared();
    for (;;) {
        if (auto value = storage.getValueIfRetrieved(pathKey(), column.key, *column.source)) {
            return std::move(*value);
        }
        // Goes round once more if the store was cleared just now.
        DataCoordinator::shared().retrieveDataSynchronously(*this, *column.source);
    }
}

WrappedMetaDataValue Node::getWrappedValueSync(const Column& column) {
    if (auto own = ownValue(column)) return std::move(*own);
    return extractedValueSync(column);
}

WrappedMetaDataValue Node::getWrappedValueSync(std::string_view forMetaDataKey) {
    return getWrappedValueSync(Column(forMetaDataKey));
}

platform::Date Node::getDateValueSync(const Column& column) {
    const WrappedMetaDataValue value = extractedValueSync(column);
    const auto* date = std::get_if<metadata::DateValue>(&value);
    return date != nullptr ? *date : platform::distantPast;
}

std::int64_t Node::getIntValueSync(const Column& column) {
    const WrappedMetaDataValue value = extractedValueSync(column);
    const auto* integer = std::get_if<metadata::NSInteger>(&value);
    return integer != nullptr ? *integer : 0;
}

void Node::addDataObserver(const std::shared_ptr<metadata::DataIsReadyObserver>& observer,
                           std::string_view forMetaDataKey) {
    const auto source = Column(forMetaDataKey).source;
    if (!source) return;
    {
        const std::lock_guard lock(observerLocks().of(this));
        if (observers_ == nullptr) observers_ = std::make_unique<NodeObservers>();
        NodeObservers::OfSource& waiting = observers_->of(*source);
        waiting.everAny = true;
        waiting.references.push_back(
            std::make_shared<metadata::WeakDataIsReadyObserverReference>(observer));
    }
    // The source may have finished between the query and this call; its signal met no observer.
    // Extraction sets the flag before it looks for observers, so one of the two sees the other.
    if (MetadataStorage::shared().isRetrieved(pathKey(), *source)) signalDataIsNowReady(*source);
}

void Node::remove(const metadata::DataIsReadyObserver& observer, MetadataSource forSource) {
    const std::lock_guard lock(observerLocks().of(this));
    if (observers_ == nullptr) return;
    std::erase_if(observers_->of(forSource).references, [&observer](const Reference& reference) {
        if (reference->identity != &observer) return false;
        reference->observer.reset();  // a signal that is under way has a copy of the list
        return true;
    });
    dropObserversIfIdle();
}

void Node::signalDataIsNowReady(MetadataSource forSource) {
    {
        const std::lock_guard lock(observerLocks().of(this));
        if (observers_ == nullptr) return;
        NodeObservers::OfSource& waiting = observers_->of(forSource);
        waiting.everAny = false;
        if (waiting.references.empty()) return;
    }
    platform::MainQueue* queue = platform::MainQueue::installed();
    if (queue == nullptr) return;
    queue->post([node = shared(), forSource] { node->tellObservers(forSource); });
}

void Node::tellObservers(MetadataSource source) {
    std::unique_lock lock(observerLocks().of(this));
    if (observers_ == nullptr) return;
    const std::vector<Reference> told = observers_->of(source).references;
    for (const Reference& reference : told) {
        auto observer = reference->observer.lock();
        lock.unlock();
        if (observer != nullptr) observer->update(source);
        observer.reset();  // maybe its end, in which it may come back to this node
        lock.lock();
        reference->observer.reset();
    }
    if (observers_ == nullptr) return;
    std::erase_if(observers_->of(source).references,
                  [](const Reference& reference) { return reference->observer.expired(); });
    dropObserversIfIdle();
}

/// A list of millions that was scrolled through keeps nothing for its rows. The caller holds the
/// node's lock.
void Node::dropObserversIfIdle() {
    const auto& all = observers_->dataReadyObservers;
    const bool isIdle = std::all_of(all.begin(), all.end(), [](const auto& waiting) {
        return waiting.references.empty() && !waiting.everAny;
    });
    if (isIdle) observers_.reset();
}

void Node::forgetLostObservers(MetadataSource forSource) {
    const std::lock_guard lock(observerLocks().of(this));
    if (observers_ == nullptr) return;
    NodeObservers::OfSource& waiting = observers_->of(forSource);
    std::erase_if(waiting.references,
                  [](const Reference& reference) { return reference->observer.expired(); });
    waiting.everAny = !waiting.references.empty();
    dropObserversIfIdle();
}

ObserverInterest Node::interest(MetadataSource forSource) const {
    const std::lock_guard lock(observerLocks().of(this));
    if (observers_ == nullptr) return ObserverInterest::none;
    const NodeObservers::OfSource& waiting = observers_->of(forSource);
    const bool present =
        std::any_of(waiting.references.begin(), waiting.references.end(),
                    [](const Reference& reference) { return !reference->observer.expired(); });
    if (present) return ObserverInterest::present;
    return waiting.everAny ? ObserverInterest::lost : ObserverInterest::none;
}

}  // namespace marquell::pipeline
