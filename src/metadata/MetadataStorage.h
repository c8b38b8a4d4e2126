// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "metadata/MetadataKey.h"
#include "metadata/MetadataSource.h"
#include "metadata/PackedValues.h"
#include "metadata/PathKey.h"
#include "metadata/WrappedMetaDataValue.h"
#include "platform/FileSystem.h"

namespace marquell::metadata {

/// All that extraction has found out, by path, key and source. A cache for the life of the process:
/// nothing is written to disk or evicted, and values stand until clear(). Every operation may be
/// called from any thread. What a thread has stored it can read at once; who sees a source's
/// `retrieved` flag sees all values that the source stored before it.
///
/// Paths are spread over shards with a lock each, which is held for a look-up and a copy only.
class MetadataStorage {
public:
    MetadataStorage();
    ~MetadataStorage();
    MetadataStorage(const MetadataStorage&) = delete;
    MetadataStorage& operator=(const MetadataStorage&) = delete;

    /// The program's own store.
    static MetadataStorage& shared();

    /// A later value under the same path, key and source replaces the earlier one.
    void store(const PathKey& fullPath, MetadataSource source, std::string_view key,
               StoredValue value);
    /// Several values at once, in one look-up.
    void store(const PathKey& fullPath, MetadataSource source, std::span<const KeyedValue> values);

    /// All keys of the basic source at once.
    void storeBasicInformation(const PathKey& fullPath,
                               const platform::EntryAttributes& attributes);

    WrappedMetaDataValue getWrappedValue(const PathKey& fullPath, MetadataKey key,
                                         MetadataSource source) const;
    WrappedMetaDataValue getWrappedValue(const PathKey& fullPath, std::string_view forKey,
                                         MetadataSource fromSource) const;
    std::optional<std::string> getStringValue(const PathKey& fullPath, std::string_view forKey,
                                              MetadataSource fromSource) const;
    /// Seconds since platform::referenceDate; those of platform::distantPast without a value.
    double getTimeIntervalValue(const PathKey& fullPath, std::string_view forKey,
                                MetadataSource fromSource) const;
    bool boolValueExistsAndIsTrue(const PathKey& fullPath, std::string_view forKey,
                                  MetadataSource fromSource) const;
    /// The string of the first source in the preferred order (image, audio-visual, index) that has
    /// one. The basic source and the hashes are in no such order.
    std::optional<std::string> getPreferredStringValue(const PathKey& fullPath,
                                                       std::string_view forKey) const;

    /// Whether the source has finished with the path.
    bool isRetrieved(const PathKey& fullPath, MetadataSource source) const;

    /// The value if the source has finished with the path, in one look-up; otherwise nothing.
    std::optional<WrappedMetaDataValue> getValueIfRetrieved(const PathKey& fullPath,
                                                            MetadataKey key,
                                                            MetadataSource source) const;

    /// A value of a path, by what it is stored under.
    struct ValueId {
        MetadataKey key;
        MetadataSource source;
    };
    /// The values of all ids if all their sources have finished with the path, in one look-up;
    /// otherwise false. `values` has a place for each id.
    bool getValuesIfRetrieved(const PathKey& fullPath, std::span<const ValueId> ids,
                              std::span<WrappedMetaDataValue> values) const;

    /// Says which content of the store a retrieval was begun for.
    enum class Ticket : std::uint32_t {};

    /// Decides who extracts: a ticket tells the caller to do it and to call finishRetrieval or
    /// cancelRetrieval afterwards in any case. None means that the source has finished; when
    /// another thread is at it, that is waited for, until `shouldStop` (asked ten times a second)
    /// says no. Not to be called by a thread that holds a ticket.
    std::optional<Ticket> beginRetrieval(const PathKey& fullPath, MetadataSource source,
                                         const std::function<bool()>& shouldStop);
    /// The same without waiting: none also when another thread is at it. A thread may hold several
    /// tickets of this kind.
    std::optional<Ticket> tryBeginRetrieval(const PathKey& fullPath, MetadataSource source);

    /// Sets the `retrieved` flag and lets waiting threads go on. If the store was cleared since the
    /// retrieval began, some of its values are gone: then it sets no flag and returns false.
    bool finishRetrieval(const PathKey& fullPath, MetadataSource source, Ticket ticket);
    /// Lets a waiting thread take over what was not done.
    void cancelRetrieval(const PathKey& fullPath, MetadataSource source, Ticket ticket);

    /// Forgets everything, flags and counter included. What an extraction that runs meanwhile
    /// stores afterwards is accepted.
    void clear();

    /// Values stored since the last clear(), flags included. For progress figures.
    std::int64_t itemCounter() const { return itemCounter_.load(std::memory_order_relaxed); }

private:
    struct Shard;
    static constexpr std::size_t shardCount = 64;

    Shard& shardOf(const PathKey& path) const;
    bool endRetrieval(const PathKey& fullPath, MetadataSource source, Ticket ticket,
                      bool isRetrieved);
    std::unique_ptr<std::array<Shard, shardCount>> shards_;
    std::atomic<std::int64_t> itemCounter_ = 0;
};

}  // namespace marquell::metadata
