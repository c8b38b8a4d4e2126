// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/LongLine.h"

#include <algorithm>
#include <cmath>

namespace marquell::window {
namespace {

constexpr float smallestCorrection = 0.01F;  // px
constexpr std::size_t farAway = 8192;        // chunks, from which on it would take too long
constexpr std::size_t measuredOfFar = 32;    // one of as many

}  // namespace

LongLine::LongLine(const platform::LinedText& text, const PageMeasure& measure, const Line& line)
    : text_(text),
      measure_(measure),
      line_(line),
      chunkCount_(window::chunkCount(line)),
      starts_{0} {}

double LongLine::startOf(std::size_t chunk) {
    findWidthsUpTo(chunk);
    if (chunk > 0) measure(chunk - 1);  // may be in view as well
    findStartsUpTo(chunk);
    return starts_[chunk];
}

double LongLine::endOf(std::size_t chunk) {
    const double start = startOf(chunk);
    measure(chunk);
    return start + static_cast<double>(widths_[chunk].px);
}

std::size_t LongLine::chunkAtX(double x) {
    std::size_t last = starts_.size() - 1;
    for (double end = endOf(last); end <= x && last + 1 < chunkCount_; end = endOf(last)) {
        const double chunksToGo = end > 0 ? (x - end) / end * static_cast<double>(last + 1) : 1;
        const double farthest = static_cast<double>(chunkCount_ - 1 - last);
        last += std::max<std::size_t>(static_cast<std::size_t>(std::min(chunksToGo, farthest)), 1);
    }
    const auto behind = std::ranges::upper_bound(starts_, std::max(x, 0.0));
    auto chunk = static_cast<std::size_t>(std::distance(starts_.begin(), behind)) - 1;
    // Asking measures those about it, which may move it.
    while (chunk > 0 && startOf(chunk) > x) --chunk;
    while (chunk + 1 < chunkCount_ && endOf(chunk) <= x) ++chunk;
    return chunk;
}

void LongLine::setWidth(std::size_t chunk, double width) {
    findWidthsUpTo(chunk);
    const float before = widths_[chunk].px;
    widths_[chunk] = {static_cast<float>(width), true};
    const bool isCorrect = std::abs(widths_[chunk].px - before) < smallestCorrection;
    if (!isCorrect && starts_.size() > chunk + 1) starts_.resize(chunk + 1);
}

void LongLine::measure(std::size_t chunk) {
    if (!widths_[chunk].isMeasured) setWidth(chunk, static_cast<double>(measuredWidth(chunk)));
}

float LongLine::measuredWidth(std::size_t chunk) const {
    const TextRange range = chunkOf(text_, line_, chunk);
    const auto piece = text_.text().substr(range.start, range.length());
    return static_cast<float>(measure_.advances.widthOf(piece));
}

void LongLine::findWidthsUpTo(std::size_t chunk) {
    const std::size_t step = chunk > widths_.size() + farAway ? measuredOfFar : 1;
    while (widths_.size() <= chunk) {
        const std::size_t next = widths_.size();
        const bool isMeasured = next % step == 0 || next + 1 == chunkCount_;
        const float width = isMeasured ? measuredWidth(next) : widths_.back().px;
        widths_.push_back({width, isMeasured});
    }
}

void LongLine::findStartsUpTo(std::size_t chunk) {
    while (starts_.size() <= chunk) {
        starts_.push_back(starts_.back() + static_cast<double>(widths_[starts_.size() - 1].px));
    }
}

}  // namespace marquell::window
