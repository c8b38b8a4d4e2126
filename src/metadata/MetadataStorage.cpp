// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MetadataStorage.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

#include "metadata/RecordTable.h"
#include "platform/Disposal.h"

namespace marquell::metadata {
namespace {

constexpr std::array preferredSourceOrder = {
    MetadataSource::imageIO,
    MetadataSource::avKit,
    MetadataSource::sourceThree,
    MetadataSource::spotlight,
};

/// How many single values a basic record stands for.
std::int64_t basicValueCount(const platform::EntryAttributes& attributes) {
    constexpr std::int64_t sizeKeys = 5;
    return sizeKeys + (attributes.creation ? 1 : 0) + (attributes.modification ? 1 : 0);
}

}  // namespace

struct alignas(64) MetadataStorage::Shard {
    mutable std::mutex mutex;
    std::condition_variable finished;  ///< a retrieval has ended, or all was cleared
    std::unique_ptr<RecordTable> records = std::make_unique<RecordTable>();  // guarded by mutex

    std::optional<Ticket> begin(const PathKey& path, MetadataSource source) const;
};

MetadataStorage::MetadataStorage() : shards_(std::make_unique<std::array<Shard, shardCount>>()) {}

MetadataStorage::~MetadataStorage() = default;

MetadataStorage& MetadataStorage::shared() {
    // Never destroyed: giving a million records back would delay the end of the process.
    static auto* const storage = new MetadataStorage;
    return *storage;
}

MetadataStorage::Shard& MetadataStorage::shardOf(const PathKey& path) const {
    // The map within the shard uses the low bits.
    return (*shards_)[(path.hash >> 48U) % shardCount];
}

void MetadataStorage::store(const PathKey& fullPath, MetadataSource source, std::string_view key,
                            StoredValue value) {
    const std::array values = {KeyedValue{metadataKey(key), std::move(value)}};
    store(fullPath, source, values);
}

void MetadataStorage::store(const PathKey& fullPath, MetadataSource source,
                            std::span<const KeyedValue> values) {
    {
        Shard& shard = shardOf(fullPath);
        const std::lock_guard lock(shard.mutex);
        shard.records->findOrMake(fullPath).store(source, values);
    }
    itemCounter_.fetch_add(static_cast<std::int64_t>(values.size()), std::memory_order_relaxed);
}

void MetadataStorage::storeBasicInformation(const PathKey& fullPath,
                                            const platform::EntryAttributes& attributes) {
    {
        Shard& shard = shardOf(fullPath);
        const std::lock_guard lock(shard.mutex);
        shard.records->findOrMake(fullPath).storeBasicInformation(attributes);
    }
    itemCounter_.fetch_add(basicValueCount(attributes), std::memory_order_relaxed);
}

WrappedMetaDataValue MetadataStorage::getWrappedValue(const PathKey& fullPath, MetadataKey key,
                                                      MetadataSource source) const {
    const Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    const PathRecord* record = shard.records->find(fullPath);
    return record != nullptr ? record->find(key, source) : None{};
}

WrappedMetaDataValue MetadataStorage::getWrappedValue(const PathKey& fullPath,
                                                      std::string_view forKey,
                                                      MetadataSource fromSource) const {
    return getWrappedValue(fullPath, metadataKey(forKey), fromSource);
}

std::optional<std::string> MetadataStorage::getStringValue(const PathKey& fullPath,
                                                           std::string_view forKey,
                                                           MetadataSource fromSource) const {
    WrappedMetaDataValue value = getWrappedValue(fullPath, forKey, fromSource);
    if (auto* text = std::get_if<StringValue>(&value)) return std::move(*text);
    return std::nullopt;
}

double MetadataStorage::getTimeIntervalValue(const PathKey& fullPath, std::string_view forKey,
                                             MetadataSource fromSource) const {
    const WrappedMetaDataValue value = getWrappedValue(fullPath, forKey, fromSource);
    const auto* date = std::get_if<DateValue>(&value);
    return platform::timeIntervalSinceReferenceDate(date != nullptr ? *date
                                                                    : platform::distantPast);
}

bool MetadataStorage::boolValueExistsAndIsTrue(const PathKey& fullPath, std::string_view forKey,
                                               MetadataSource fromSource) const {
    const WrappedMetaDataValue value = getWrappedValue(fullPath, forKey, fromSource);
    const auto* flag = std::get_if<BoolValue>(&value);
    return flag != nullptr && *flag;
}

std::optional<std::string> MetadataStorage::getPreferredStringValue(const PathKey& fullPath,
                                                                    std::string_view forKey) const {
    for (const MetadataSource source : preferredSourceOrder) {
        if (auto text = getStringValue(fullPath, forKey, source)) return text;
    }
    return std::nullopt;
}

bool MetadataStorage::isRetrieved(const PathKey& fullPath, MetadataSource source) const {
    const Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    const PathRecord* record = shard.records->find(fullPath);
    return record != nullptr && record->isRetrieved(source);
}

std::optional<WrappedMetaDataValue> MetadataStorage::getValueIfRetrieved(
    const PathKey& fullPath, MetadataKey key, MetadataSource source) const {
    const Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    const PathRecord* record = shard.records->find(fullPath);
    if (record == nullptr || !record->isRetrieved(source)) return std::nullopt;
    return record->find(key, source);
}

bool MetadataStorage::getValuesIfRetrieved(const PathKey& fullPath, std::span<const ValueId> ids,
                                           std::span<WrappedMetaDataValue> values) const {
    const Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    const PathRecord* record = shard.records->find(fullPath);
    if (record == nullptr) return false;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!record->isRetrieved(ids[i].source)) return false;
        values[i] = record->find(ids[i].key, ids[i].source);
    }
    return true;
}

/// Under the lock. None when the record is finished with or somebody is at it.
std::optional<MetadataStorage::Ticket> MetadataStorage::Shard::begin(const PathKey& path,
                                                                     MetadataSource source) const {
    PathRecord& record = records->findOrMake(path);
    if (record.isRetrieved(source) || record.isRetrieving(source)) return std::nullopt;
    record.setRetrieving(source, true);
    return static_cast<Ticket>(records->generation());
}

std::optional<MetadataStorage::Ticket> MetadataStorage::beginRetrieval(
    const PathKey& fullPath, MetadataSource source, const std::function<bool()>& shouldStop) {
    using namespace std::chrono_literals;
    Shard& shard = shardOf(fullPath);
    std::unique_lock lock(shard.mutex);
    for (;;) {
        // Other paths of the shard wake it too, so the question has a time of its own.
        const auto due = std::chrono::steady_clock::now() + 100ms;
        do {
            if (const auto ticket = shard.begin(fullPath, source)) return ticket;
            if (shard.records->findOrMake(fullPath).isRetrieved(source)) return std::nullopt;
        } while (shard.finished.wait_until(lock, due) == std::cv_status::no_timeout &&
                 std::chrono::steady_clock::now() < due);
        lock.unlock();
        if (shouldStop()) return std::nullopt;
        lock.lock();
    }
}

std::optional<MetadataStorage::Ticket> MetadataStorage::tryBeginRetrieval(const PathKey& fullPath,
                                                                          MetadataSource source) {
    Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    return shard.begin(fullPath, source);
}

bool MetadataStorage::finishRetrieval(const PathKey& fullPath, MetadataSource source,
                                      Ticket ticket) {
    if (!endRetrieval(fullPath, source, ticket, true)) return false;
    itemCounter_.fetch_add(1, std::memory_order_relaxed);
    return true;
}

void MetadataStorage::cancelRetrieval(const PathKey& fullPath, MetadataSource source,
                                      Ticket ticket) {
    endRetrieval(fullPath, source, ticket, false);
}

bool MetadataStorage::endRetrieval(const PathKey& fullPath, MetadataSource source, Ticket ticket,
                                   bool isRetrieved) {
    Shard& shard = shardOf(fullPath);
    {
        const std::lock_guard lock(shard.mutex);
        if (ticket != static_cast<Ticket>(shard.records->generation())) return false;
        PathRecord& record = shard.records->findOrMake(fullPath);
        record.setRetrieving(source, false);
        record.setRetrieved(source, isRetrieved);
    }
    shard.finished.notify_all();
    return true;
}

void MetadataStorage::clear() {
    const auto old = std::make_shared<std::vector<std::unique_ptr<RecordTable>>>();
    for (Shard& shard : *shards_) {
        old->push_back(std::make_unique<RecordTable>());
        const std::lock_guard lock(shard.mutex);
        old->back().swap(shard.records);
        shard.finished.notify_all();
    }
    platform::disposeOnWorker(old);
    itemCounter_.store(0, std::memory_order_relaxed);
}

}  // namespace marquell::metadata
