// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextSearch.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace marquell::window {
namespace {

constexpr std::size_t blocksBetweenNews = 2048;
constexpr std::size_t rememberedBlocks = 512;

}  // namespace

class TextSearch::Operation : public platform::Operation {
public:
    Operation(std::shared_ptr<SearchRun> run, std::size_t firstBlock, std::function<void()> tell)
        : run_(std::move(run)), firstBlock_(firstBlock), tell_(std::move(tell)) {}

    void main() override {
        const std::size_t count = run_->blockCount();
        bool hasHit = false;
        for (std::size_t i = 0; i < count; ++i) {
            if (isCancelled()) return;
            const bool hasHitHere = run_->count((firstBlock_ + i) % count) > 0;
            const bool isFirst = hasHitHere && !std::exchange(hasHit, hasHit || hasHitHere);
            if (isFirst || (i + 1) % blocksBetweenNews == 0 || i + 1 == count) tell_();
        }
    }

private:
    const std::shared_ptr<SearchRun> run_;
    const std::size_t firstBlock_;
    const std::function<void()> tell_;
};

TextSearch::TextSearch() : queue_("search") {}

TextSearch::~TextSearch() = default;

void TextSearch::start(std::shared_ptr<const platform::LinedText> text, TextPattern pattern,
                       std::size_t from) {
    stop();
    run_ = std::make_shared<SearchRun>(std::move(text), std::move(pattern));
    const auto tellLater = [this, run = run_.get()] {
        QMetaObject::invokeMethod(
            &receiver_, [this, run] { tell(run); }, Qt::QueuedConnection);
    };
    const auto operation = std::make_shared<Operation>(run_, run_->blockAt(from), tellLater);
    if (!queue_.addOperation(operation)) operation->main();
}

void TextSearch::stop() {
    queue_.cancelAllOperations();
    run_.reset();
    hits_.clear();
}

/// Runs on the main thread some time after the run had news.
void TextSearch::tell(const SearchRun* run) const {
    if (run == run_.get() && progressed) progressed();
}

TextSearch::Answer TextSearch::hitFrom(std::size_t offset) const {
    const std::size_t count = run_->blockCount();
    const std::size_t first = run_->blockAt(offset);
    for (std::size_t i = 0; i <= count; ++i) {
        const std::size_t block = (first + i) % count;
        const auto hitCount = run_->hitCountOf(block);
        if (!hitCount) return {false};
        if (*hitCount == 0) continue;
        const auto& hits = hitsOf(block);
        const auto hit =
            i == 0 ? std::ranges::lower_bound(hits, offset, {}, &TextRange::start) : hits.begin();
        if (hit != hits.end()) return {true, *hit};
    }
    return {};
}

TextSearch::Answer TextSearch::hitBefore(std::size_t offset) const {
    const std::size_t count = run_->blockCount();
    const std::size_t first = run_->blockAt(offset);
    for (std::size_t i = 0; i <= count; ++i) {
        const std::size_t block = (first + count - i % count) % count;
        const auto hitCount = run_->hitCountOf(block);
        if (!hitCount) return {false};
        if (*hitCount == 0) continue;
        const auto& hits = hitsOf(block);
        const auto behind =
            i == 0 ? std::ranges::lower_bound(hits, offset, {}, &TextRange::start) : hits.end();
        if (behind != hits.begin()) return {true, *std::prev(behind)};
    }
    return {};
}

std::vector<TextRange> TextSearch::hitsIn(const TextRange& range) const {
    std::vector<TextRange> touching;
    const TextRange blocks = run_->blocksAbout(range);
    for (std::size_t block = blocks.start; block < blocks.end; ++block) {
        if (run_->hitCountOf(block) == 0) continue;
        std::ranges::copy_if(hitsOf(block), std::back_inserter(touching), [&](const auto& hit) {
            return hit.start < range.end && hit.end > range.start;
        });
    }
    return touching;
}

std::size_t TextSearch::numberBefore(std::size_t offset) const {
    const std::size_t last = run_->blockAt(offset);
    std::size_t number = 0;
    for (std::size_t block = 0; block < last; ++block) number += *run_->hitCountOf(block);
    const auto& hits = hitsOf(last);
    const auto behind = std::ranges::lower_bound(hits, offset, {}, &TextRange::start);
    return number + static_cast<std::size_t>(behind - hits.begin());
}

const std::vector<TextRange>& TextSearch::hitsOf(std::size_t block) const {
    const auto known = hits_.find(block);
    if (known != hits_.end()) return known->second;
    if (hits_.size() == rememberedBlocks) hits_.clear();
    return hits_.emplace(block, run_->hitsOf(block)).first->second;
}

}  // namespace marquell::window
