// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/FlatFileList.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <numeric>
#include <string>
#include <utility>

#include "pipeline/SortKeys.h"
#include "platform/Workers.h"

namespace marquell::pipeline {
namespace {

/// Memory for keys that are made and dropped together.
class KeyBlock {
public:
    const char* keep(std::string_view key) {
        if (next_ == nullptr || key.size() > room_) {
            room_ = std::max(key.size(), blockSize);
            blocks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
            next_ = blocks_.back().get();
        }
        char* kept = next_;
        std::memcpy(kept, key.data(), key.size());
        next_ += key.size();
        room_ -= key.size();
        return kept;
    }

private:
    static constexpr std::size_t blockSize = 256 * 1024;

    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;
    std::size_t room_ = 0;
};

/// One sort of a list: items in the place of nodes, and the memory of their keys.
class ListSort {
public:
    ListSort(const std::vector<std::shared_ptr<Node>>& files, const StopCheck& stopped)
        : files_(files), stopped_(stopped), items_(files.size()) {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            items_[i].index = static_cast<std::uint32_t>(i);
        }
    }

    std::vector<ItemRange> everything() const {
        if (items_.size() < 2) return {};
        return {{0, items_.size()}};
    }

    /// Sorts each run by the mode's key and returns what still ties.
    std::vector<ItemRange> sortRuns(const std::vector<ItemRange>& runs, const SortKeyMaker& maker) {
        makeKeys(runs, maker);
        std::vector<ItemRange> ties;
        for (const ItemRange& run : runs) {
            for (const ItemRange& tie : sortByKey(part(run), maker.isDescending(), stopped_)) {
                ties.push_back({run.begin + tie.begin, run.begin + tie.end});
            }
        }
        keyBlocks_.clear();
        return ties;
    }

    void sortTies(const std::vector<ItemRange>& runs, const TieOrder& tieOrder) {
        for (const ItemRange& run : runs) {
            const auto tied = part(run);
            std::sort(tied.begin(), tied.end(), [&tieOrder](const SortItem& a, const SortItem& b) {
                return tieOrder(a.index, b.index);
            });
        }
    }

    const std::vector<SortItem>& items() const { return items_; }

private:
    std::span<SortItem> part(const ItemRange& range) {
        return std::span(items_).subspan(range.begin, range.end - range.begin);
    }

    void makeKeys(const std::vector<ItemRange>& runs, const SortKeyMaker& maker) {
        std::vector<std::size_t> positions;
        for (const ItemRange& run : runs) {
            const std::size_t old = positions.size();
            positions.resize(old + run.end - run.begin);
            std::iota(positions.begin() + static_cast<std::ptrdiff_t>(old), positions.end(),
                      run.begin);
        }
        const std::size_t grain = maker.column().empty() ? 8192 : 64;
        platform::forRanges(positions.size(), grain, [&](std::size_t begin, std::size_t end) {
            KeyBlock keys;
            std::string key;
            for (std::size_t i = begin; i < end && !(i % 256 == 0 && stopped_()); ++i) {
                SortItem& item = items_[positions[i]];
                key.clear();
                maker.append(key, *files_[item.index]);
                item.key = keys.keep(key);
                item.keyLength = static_cast<std::uint32_t>(key.size());
            }
            const std::lock_guard lock(keyBlocksMutex_);
            keyBlocks_.push_back(std::move(keys));
        });
    }

    const std::vector<std::shared_ptr<Node>>& files_;
    const StopCheck& stopped_;
    std::vector<SortItem> items_;
    std::mutex keyBlocksMutex_;
    std::vector<KeyBlock> keyBlocks_;  // guarded by keyBlocksMutex_ while keys are made
};

}  // namespace

bool keepsEarlierOrder(std::uint32_t a, std::uint32_t b) { return a < b; }

void FlatFileList::sort(int firstSortMode, int secondSortMode, const StopCheck& stopped,
                        const TieOrder& tieOrder) {
    const SortKeyMaker first(firstSortMode);
    const SortKeyMaker second(secondSortMode);
    ListSort sort(files, stopped);
    std::vector<ItemRange> ties = sort.everything();
    if (first.isKnown()) {
        ties = sort.sortRuns(ties, first);
        if (second.isKnown() && !second.hasSameKeyAs(first)) ties = sort.sortRuns(ties, second);
    }
    if (stopped()) return;
    sort.sortTies(ties, tieOrder);
    std::vector<std::shared_ptr<Node>> sorted;
    sorted.reserve(files.size());
    for (const SortItem& item : sort.items()) sorted.push_back(std::move(files[item.index]));
    files = std::move(sorted);
}

}  // namespace marquell::pipeline
