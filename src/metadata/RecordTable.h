// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <vector>

#include "metadata/PathKey.h"
#include "metadata/PathRecord.h"

namespace marquell::metadata {

/// Records by path, in memory that is given back at once. A hash table with the hashes in its
/// slots, so that finding one of a million records looks at the slot and the record and nothing
/// else. Not for two threads at once; the places that keys bring along count as part of it.
class RecordTable {
public:
    RecordTable();
    ~RecordTable();
    RecordTable(const RecordTable&) = delete;
    RecordTable& operator=(const RecordTable&) = delete;

    /// Different for each table of the process, and never 0.
    std::uint32_t generation() const { return generation_; }

    /// The path's record; null if it has none.
    PathRecord* find(const PathKey& key);

    /// The path's record, made if it has none. It stays where it is.
    PathRecord& findOrMake(const PathKey& key);

private:
    struct Slot {
        std::size_t hash = 0;
        PathRecord* record = nullptr;
    };

    Slot& slotOf(const PathKey& key);
    PathRecord* make(const PathKey& key);
    void grow();
    PathRecord* remember(const PathKey& key, PathRecord* record) const;

    const std::uint32_t generation_;
    std::pmr::monotonic_buffer_resource memory_;
    std::vector<Slot> slots_;  ///< a power of two of them, at most two thirds in use
    std::size_t count_ = 0;
};

}  // namespace marquell::metadata
