// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/SearchRun.h"

#include <algorithm>
#include <utility>

#include "window/preview/DecodedText.h"

namespace marquell::window {
namespace {

constexpr std::size_t blockLength = 16 * 1024;

std::size_t blocksFor(std::size_t length) {
    return std::max<std::size_t>((length + blockLength - 1) / blockLength, 1);
}

}  // namespace

SearchRun::SearchRun(std::shared_ptr<const platform::LinedText> text, TextPattern pattern)
    : text_(std::move(text)),
      pattern_(std::move(pattern)),
      counts_(blocksFor(text_->text().size())) {
    for (auto& each : counts_) each.store(-1, std::memory_order_relaxed);
}

std::size_t SearchRun::blockStart(std::size_t block) const {
    const std::string_view text = text_->text();
    std::size_t start = std::min(block * blockLength, text.size());
    while (!beginsCodePoint(text, start)) ++start;
    return start;
}

std::size_t SearchRun::blockAt(std::size_t offset) const {
    const std::size_t block = std::min(offset / blockLength, blockCount() - 1);
    return block > 0 && blockStart(block) > offset ? block - 1 : block;
}

TextRange SearchRun::blocksAbout(const TextRange& range) const {
    const std::size_t before = std::min(range.start, pattern_.longestHit());
    return {blockAt(range.start - before), blockAt(range.end) + 1};
}

std::vector<TextRange> SearchRun::hitsOf(std::size_t block) const {
    std::vector<TextRange> hits;
    pattern_.find(text_->text(), {blockStart(block), blockStart(block + 1)}, hits);
    return hits;
}

std::size_t SearchRun::count(std::size_t block) {
    const std::size_t hits = hitsOf(block).size();
    hitCount_ += hits;
    counts_[block].store(static_cast<std::int32_t>(hits));
    ++countedBlocks_;
    return hits;
}

std::optional<std::size_t> SearchRun::hitCountOf(std::size_t block) const {
    const std::int32_t count = counts_[block].load();
    if (count < 0) return std::nullopt;
    return static_cast<std::size_t>(count);
}

}  // namespace marquell::window
