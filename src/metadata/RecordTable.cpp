// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/RecordTable.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

namespace marquell::metadata {
namespace {

constexpr std::size_t firstSlots = 16;

/// Different for each table of the process, and never 0: a place found in another table, or in the
/// one before a clear, is recognised by it.
std::uint32_t nextGeneration() {
    static std::atomic<std::uint32_t> last = 0;
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

}  // namespace

RecordTable::RecordTable() : generation_(nextGeneration()), slots_(firstSlots) {}

RecordTable::~RecordTable() {
    for (const Slot& slot : slots_) {
        if (slot.record != nullptr) slot.record->~PathRecord();
    }
}

PathRecord* RecordTable::find(const PathKey& key) {
    if (key.place != nullptr &&
        key.place->generation.load(std::memory_order_relaxed) == generation_) {
        return static_cast<PathRecord*>(key.place->record.load(std::memory_order_relaxed));
    }
    PathRecord* record = slotOf(key).record;
    return record != nullptr ? remember(key, record) : nullptr;
}

PathRecord& RecordTable::findOrMake(const PathKey& key) {
    if (PathRecord* known = find(key)) return *known;
    if ((count_ + 1) * 3 > slots_.size() * 2) grow();
    Slot& slot = slotOf(key);
    slot = {key.hash, make(key)};
    ++count_;
    return *remember(key, slot.record);
}

/// The slot that holds the path, or the free one that it would go to.
RecordTable::Slot& RecordTable::slotOf(const PathKey& key) {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = key.hash & mask;; i = (i + 1) & mask) {
        Slot& slot = slots_[i];
        if (slot.record == nullptr) return slot;
        if (slot.hash == key.hash && slot.record->path() == key.path) return slot;
    }
}

PathRecord* RecordTable::make(const PathKey& key) {
    void* place = memory_.allocate(sizeof(PathRecord) + key.path.size(), alignof(PathRecord));
    char* path = static_cast<char*>(place) + sizeof(PathRecord);
    std::copy(key.path.begin(), key.path.end(), path);
    return new (place) PathRecord({path, key.path.size()});
}

void RecordTable::grow() {
    std::vector<Slot> old(slots_.size() * 2);
    old.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.record == nullptr) continue;
        std::size_t i = slot.hash & mask;
        while (slots_[i].record != nullptr) i = (i + 1) & mask;
        slots_[i] = slot;
    }
}

PathRecord* RecordTable::remember(const PathKey& key, PathRecord* record) const {
    if (key.place != nullptr) {
        key.place->record.store(record, std::memory_order_relaxed);
        key.place->generation.store(generation_, std::memory_order_relaxed);
    }
    return record;
}

}  // namespace marquell::metadata
