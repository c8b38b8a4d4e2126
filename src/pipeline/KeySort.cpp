// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/KeySort.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace marquell::pipeline {
namespace {

constexpr std::size_t windowSize = sizeof(SortItem::window);

/// Items that agree in the first `depth` bytes.
struct Group {
    std::size_t begin;
    std::size_t end;
    std::size_t depth;
};

/// The highest byte first, zeros behind the end of the key.
std::uint64_t bytesAt(const SortItem& item, std::size_t depth) {
    std::uint64_t word = 0;
    if (depth < item.keyLength) {
        std::memcpy(&word, item.key + depth, std::min(windowSize, item.keyLength - depth));
    }
    if constexpr (std::endian::native == std::endian::little) word = __builtin_bswap64(word);
    return word;
}

/// Sorts eight bytes of the keys at a time, and again, eight bytes on, what these don't tell apart:
/// names in one folder share long beginnings, which comparing whole keys would read over and over.
class Sorter {
public:
    Sorter(std::span<SortItem> items, bool descending)
        : items_(items), flip_(descending ? ~std::uint64_t{0} : 0) {
        groups_.push_back({0, items.size(), 0});
    }

    std::vector<ItemRange> run(const StopCheck& stopped) {
        while (!groups_.empty() && !stopped()) {
            const Group group = groups_.back();
            groups_.pop_back();
            sortWindow(group);
            splitAtDifferences(group);
        }
        return std::move(equalRuns_);
    }

private:
    void sortWindow(const Group& group) {
        const auto part = items_.subspan(group.begin, group.end - group.begin);
        for (SortItem& item : part) item.window = bytesAt(item, group.depth) ^ flip_;
        const auto before = [](const SortItem& a, const SortItem& b) {
            return a.window < b.window;
        };
        if (!std::is_sorted(part.begin(), part.end(), before)) {
            std::sort(part.begin(), part.end(), before);
        }
    }

    void splitAtDifferences(const Group& group) {
        std::size_t begin = group.begin;
        while (begin < group.end) {
            std::size_t end = begin + 1;
            std::uint32_t longest = items_[begin].keyLength;
            while (end < group.end && items_[end].window == items_[begin].window) {
                longest = std::max(longest, items_[end].keyLength);
                ++end;
            }
            if (end - begin > 1) keep({begin, end, group.depth + windowSize}, longest);
            begin = end;
        }
    }

    void keep(const Group& group, std::size_t longestKey) {
        if (longestKey <= group.depth) {
            equalRuns_.push_back({group.begin, group.end});
        } else {
            groups_.push_back(group);
        }
    }

    std::span<SortItem> items_;
    std::uint64_t flip_;
    std::vector<Group> groups_;
    std::vector<ItemRange> equalRuns_;
};

}  // namespace

std::vector<ItemRange> sortByKey(std::span<SortItem> items, bool descending,
                                 const StopCheck& stopped) {
    return Sorter(items, descending).run(stopped);
}

}  // namespace marquell::pipeline
