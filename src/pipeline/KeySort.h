// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace marquell::pipeline {

/// Something to be sorted by a byte string that lives elsewhere.
struct SortItem {
    const char* key = nullptr;
    std::uint32_t keyLength = 0;
    std::uint32_t index = 0;   ///< what the item stands for
    std::uint64_t window = 0;  ///< scratch of the sort: eight bytes of the key
};

/// Asked now and then by long work; true makes it end early, its result then being worthless. Once
/// true, it stays true.
using StopCheck = std::function<bool()>;

/// A range of positions.
struct ItemRange {
    std::size_t begin;
    std::size_t end;
};

/// Sorts by key, as unsigned bytes, and returns the runs of two and more items with equal keys, in
/// no particular order; within a run the order is arbitrary too. Keys either hold no zero byte or
/// are all of one length.
std::vector<ItemRange> sortByKey(std::span<SortItem> items, bool descending,
                                 const StopCheck& stopped);

}  // namespace marquell::pipeline
