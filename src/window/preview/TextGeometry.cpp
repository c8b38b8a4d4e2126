// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextGeometry.h"

#include <utility>

namespace marquell::window {
namespace {

constexpr std::size_t rememberedLines = 256;  // more than are in view at once

}  // namespace

TextGeometry::TextGeometry(std::shared_ptr<const platform::LinedText> text)
    : text_(std::move(text)) {
    measureAnew();
}

void TextGeometry::measureAnew() {
    longLines_.clear();  // they know the measure
    measure_ = PageMeasure();
    width_ = static_cast<double>(text_->longestLineLength()) * measure_.averageWidth;
}

TextGeometry::Place TextGeometry::placeOf(std::size_t offset) {
    const std::size_t index = text_->lineAt(offset);
    const Line line = text_->line(index);
    const std::size_t inLine = std::min(offset, line.end);
    const std::size_t chunk = chunkAt(*text_, line, inLine);
    const TextRange range = chunkOf(*text_, line, chunk);
    const double start = chunk == 0 ? 0 : longLine(index, line).startOf(chunk);
    const double x = start + layoutOf(range).xOf(inLine - range.start);
    width_ = std::max(width_, x);
    return {index, x};
}

std::size_t TextGeometry::offsetAt(std::size_t line, double x) {
    const Line bounds = text_->line(line);
    TextRange range = {bounds.start, bounds.end};
    double start = 0;
    if (chunkCount(bounds) > 1) {
        LongLine& chunks = longLine(line, bounds);
        const std::size_t chunk = chunks.chunkAtX(x);
        range = chunkOf(*text_, bounds, chunk);
        start = chunks.startOf(chunk);
    }
    return range.start + layoutOf(range).offsetAt(x - start);
}

void TextGeometry::layOut(std::size_t line, double left, double right) {
    forEachChunk(line, left, right,
                 [this](const TextRange& range, double) { return layoutOf(range).width(); });
}

LongLine& TextGeometry::longLine(std::size_t index, const Line& line) {
    const auto known = longLines_.find(index);
    if (known != longLines_.end()) return known->second;
    if (longLines_.size() == rememberedLines) longLines_.clear();
    return longLines_.try_emplace(index, *text_, measure_, line).first->second;
}

ChunkLayout TextGeometry::layoutOf(const TextRange& range) const {
    return {text_->text().substr(range.start, range.length()), measure_};
}

}  // namespace marquell::window
