// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/LinedText.h"
#include "window/preview/TextPattern.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

/// One search in one text: how many hits begin in each of its blocks, as far as they are counted.
/// The hits themselves are found again when they are wanted. Blocks are counted in any order, each
/// without regard to others: where the words overlap themselves, a hit that reaches into the next
/// block may overlap the first one there. Any thread may use it.
class SearchRun {
public:
    SearchRun(std::shared_ptr<const platform::LinedText> text, TextPattern pattern);

    std::size_t blockCount() const { return counts_.size(); }
    std::size_t blockAt(std::size_t offset) const;
    /// The blocks in which hits begin that touch a range.
    TextRange blocksAbout(const TextRange& range) const;

    std::vector<TextRange> hitsOf(std::size_t block) const;

    /// To be called once for each block, by one thread. Returns how many hits begin there.
    std::size_t count(std::size_t block);
    /// Absent as long as the block is not counted.
    std::optional<std::size_t> hitCountOf(std::size_t block) const;
    std::size_t hitCount() const { return hitCount_.load(); }
    bool isFinished() const { return countedBlocks_.load() == blockCount(); }

private:
    std::size_t blockStart(std::size_t block) const;

    std::shared_ptr<const platform::LinedText> text_;
    TextPattern pattern_;
    std::vector<std::atomic<std::int32_t>> counts_;  // of each block, -1: not counted
    std::atomic<std::size_t> countedBlocks_ = 0;
    std::atomic<std::size_t> hitCount_ = 0;
};

}  // namespace marquell::window
