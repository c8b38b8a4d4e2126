// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MetadataStorage.h"

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <memory_resource>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/ByteCount.h"

namespace marquell::metadata {
namespace {

constexpr std::array preferredSourceOrder = {
    MetadataSource::imageIO,
    MetadataSource::avKit,
    MetadataSource::sourceThree,
    MetadataSource::spotlight,
};

constexpr std::uint8_t bitOf(MetadataSource source) {
    return static_cast<std::uint8_t>(1U << static_cast<unsigned>(source));
}

std::string roundedUpText(std::int64_t bytes, std::int64_t unit) {
    return std::to_string(bytes / unit + (bytes % unit != 0 ? 1 : 0));
}

std::optional<StoredValue> dateValue(const std::optional<platform::Date>& date) {
    return date ? std::optional<StoredValue>(*date) : std::nullopt;
}

std::optional<StoredValue> basicValue(const platform::EntryAttributes& attributes,
                                      MetadataKey key) {
    switch (key) {
        case MetadataKey::size:
            return attributes.size;
        case MetadataKey::creation_date:
            return dateValue(attributes.creation);
        case MetadataKey::modification_date:
            return dateValue(attributes.modification);
        case MetadataKey::size_in_bytes:
            return std::to_string(attributes.size);
        case MetadataKey::human_readable_size:
            return platform::byteCountText(attributes.size);
        case MetadataKey::size_in_kb:
            return roundedUpText(attributes.size, 1024);
        case MetadataKey::size_in_mb:
            return roundedUpText(attributes.size, 1'048'576);
        case MetadataKey::retrieved:
            break;
    }
    return std::nullopt;
}

/// How many single values a basic record stands for.
std::int64_t basicValueCount(const platform::EntryAttributes& attributes) {
    constexpr std::int64_t sizeKeys = 5;
    return sizeKeys + (attributes.creation ? 1 : 0) + (attributes.modification ? 1 : 0);
}

WrappedMetaDataValue wrapped(std::optional<StoredValue> value) {
    if (!value) return None{};
    return std::visit([](auto&& held) -> WrappedMetaDataValue { return std::move(held); },
                      std::move(*value));
}

}  // namespace

PathKey::PathKey(std::string_view fullPath)
    : path(fullPath), hash(std::hash<std::string_view>{}(fullPath)) {}

struct MetadataStorage::PathRecord {
    struct Entry {
        MetadataKey key;
        MetadataSource source;
        StoredValue value;
    };

    std::optional<platform::EntryAttributes> basic;
    std::uint8_t retrieved = 0;   ///< a bit for each source that has finished
    std::uint8_t retrieving = 0;  ///< a bit for each source that a thread is at
    std::vector<Entry> entries;

    auto position(MetadataKey key, MetadataSource source) const {
        return std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
            return entry.key == key && entry.source == source;
        });
    }
};

/// The records of a shard between two clears, in memory that is given back at once. Callers hold
/// the shard's lock, which also guards the places that their keys bring along.
struct MetadataStorage::Records {
    struct Hash {
        std::size_t operator()(const PathKey& key) const { return key.hash; }
    };
    struct Equal {
        bool operator()(const PathKey& a, const PathKey& b) const { return a.path == b.path; }
    };

    const std::uint32_t generation = nextGeneration();
    std::pmr::monotonic_buffer_resource memory;
    std::pmr::unordered_map<PathKey, PathRecord, Hash, Equal> byPath{&memory};

    /// The path's record; null if it has none.
    PathRecord* lookUp(const PathKey& key) {
        if (key.place != nullptr && key.place->generation == generation) {
            return static_cast<PathRecord*>(key.place->record);
        }
        const auto found = byPath.find(key);
        return found != byPath.end() ? remember(key, found->second) : nullptr;
    }

    /// The path's record, made if it has none.
    PathRecord& recordOf(const PathKey& key) {
        if (PathRecord* record = lookUp(key)) return *record;
        char* bytes = static_cast<char*>(memory.allocate(key.path.size() + 1, 1));
        std::copy(key.path.begin(), key.path.end(), bytes);
        return *remember(key, byPath[PathKey({bytes, key.path.size()}, key.hash)]);
    }

private:
    /// Different for each content of each store, and never 0.
    static std::uint32_t nextGeneration() {
        static std::atomic<std::uint32_t> last = 0;
        return last.fetch_add(1, std::memory_order_relaxed) + 1;
    }

    PathRecord* remember(const PathKey& key, PathRecord& record) const {
        if (key.place != nullptr) *key.place = {&record, generation};
        return &record;
    }
};

struct alignas(64) MetadataStorage::Shard {
    mutable std::mutex mutex;
    std::condition_variable finished;  ///< a retrieval has ended, or all was cleared
    std::unique_ptr<Records> records = std::make_unique<Records>();  // guarded by mutex
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
    const MetadataKey number = metadataKey(key);
    {
        Shard& shard = shardOf(fullPath);
        const std::lock_guard lock(shard.mutex);
        PathRecord& record = shard.records->recordOf(fullPath);
        const auto position = record.position(number, source) - record.entries.cbegin();
        if (number == MetadataKey::retrieved) {
            const bool* flag = std::get_if<BoolValue>(&value);
            const auto others = static_cast<std::uint8_t>(record.retrieved & ~bitOf(source));
            record.retrieved = flag != nullptr && *flag ? record.retrieved | bitOf(source) : others;
        } else if (static_cast<std::size_t>(position) < record.entries.size()) {
            record.entries[static_cast<std::size_t>(position)].value = std::move(value);
        } else {
            record.entries.push_back({number, source, std::move(value)});
        }
    }
    itemCounter_.fetch_add(1, std::memory_order_relaxed);
}

void MetadataStorage::storeBasicInformation(const PathKey& fullPath,
                                            const platform::EntryAttributes& attributes) {
    {
        Shard& shard = shardOf(fullPath);
        const std::lock_guard lock(shard.mutex);
        PathRecord& record = shard.records->recordOf(fullPath);
        record.basic = attributes;
        std::erase_if(record.entries, [&](const PathRecord::Entry& entry) {
            return entry.source == MetadataSource::basic && basicValue(attributes, entry.key);
        });
    }
    itemCounter_.fetch_add(basicValueCount(attributes), std::memory_order_relaxed);
}

std::optional<StoredValue> MetadataStorage::find(const PathRecord& record, MetadataKey key,
                                                 MetadataSource source) {
    if (key == MetadataKey::retrieved) {
        if ((record.retrieved & bitOf(source)) == 0) return std::nullopt;
        return true;
    }
    const auto position = record.position(key, source);
    if (position != record.entries.end()) return position->value;
    if (source != MetadataSource::basic || !record.basic) return std::nullopt;
    return basicValue(*record.basic, key);
}

WrappedMetaDataValue MetadataStorage::getWrappedValue(const PathKey& fullPath, MetadataKey key,
                                                      MetadataSource source) const {
    const Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    const PathRecord* record = shard.records->lookUp(fullPath);
    return record != nullptr ? wrapped(find(*record, key, source)) : None{};
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
    const PathRecord* record = shard.records->lookUp(fullPath);
    return record != nullptr && (record->retrieved & bitOf(source)) != 0;
}

std::optional<WrappedMetaDataValue> MetadataStorage::getValueIfRetrieved(
    const PathKey& fullPath, MetadataKey key, MetadataSource source) const {
    const Shard& shard = shardOf(fullPath);
    const std::lock_guard lock(shard.mutex);
    const PathRecord* record = shard.records->lookUp(fullPath);
    if (record == nullptr || (record->retrieved & bitOf(source)) == 0) return std::nullopt;
    return wrapped(find(*record, key, source));
}

bool MetadataStorage::beginRetrieval(const PathKey& fullPath, MetadataSource source) {
    Shard& shard = shardOf(fullPath);
    std::unique_lock lock(shard.mutex);
    for (;;) {
        PathRecord& record = shard.records->recordOf(fullPath);
        if ((record.retrieved & bitOf(source)) != 0) return false;
        if ((record.retrieving & bitOf(source)) == 0) {
            record.retrieving |= bitOf(source);
            return true;
        }
        shard.finished.wait(lock);
    }
}

void MetadataStorage::finishRetrieval(const PathKey& fullPath, MetadataSource source) {
    Shard& shard = shardOf(fullPath);
    {
        const std::lock_guard lock(shard.mutex);
        PathRecord& record = shard.records->recordOf(fullPath);
        record.retrieving &= static_cast<std::uint8_t>(~bitOf(source));
        record.retrieved |= bitOf(source);
    }
    shard.finished.notify_all();
    itemCounter_.fetch_add(1, std::memory_order_relaxed);
}

void MetadataStorage::clear() {
    for (Shard& shard : *shards_) {
        auto old = std::make_unique<Records>();
        const std::lock_guard lock(shard.mutex);
        old.swap(shard.records);
        shard.finished.notify_all();
    }
    itemCounter_.store(0, std::memory_order_relaxed);
}

}  // namespace marquell::metadata
