// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>

#include "window/preview/ChunkLayout.h"
#include "window/preview/LongLine.h"

namespace marquell::window {

/// Where the characters of a text stand when it is laid out, in px from the left edge of the text.
class TextGeometry {
public:
    explicit TextGeometry(std::shared_ptr<const platform::LinedText> text);

    /// The fonts are others than before.
    void measureAnew();

    const platform::LinedText& text() const { return *text_; }
    const PageMeasure& measure() const { return measure_; }

    struct Place {
        std::size_t line;
        double x;
    };
    Place placeOf(std::size_t offset);
    /// The boundary of a character of the line that is nearest to `x`.
    std::size_t offsetAt(std::size_t line, double x);

    /// Lays out what of a line is between `left` and `right`, so that its places hold.
    void layOut(std::size_t line, double left, double right);

    /// Calls `visit(range, x)` with each chunk of the line between `left` and `right` and where it
    /// begins; it returns the chunk's width.
    template <typename Visit>
    void forEachChunk(std::size_t line, double left, double right, Visit visit);

    /// Of the widest line, as far as that is known without laying out all of them.
    double width() const { return width_; }

private:
    LongLine& longLine(std::size_t index, const Line& line);
    ChunkLayout layoutOf(const TextRange& range) const;

    std::shared_ptr<const platform::LinedText> text_;
    PageMeasure measure_;
    std::unordered_map<std::size_t, LongLine> longLines_;  // some, by their numbers
    double width_ = 0;
};

template <typename Visit>
void TextGeometry::forEachChunk(std::size_t line, double left, double right, Visit visit) {
    const Line bounds = text_->line(line);
    if (chunkCount(bounds) == 1) {
        const double width = visit(TextRange{bounds.start, bounds.end}, 0.0);
        width_ = std::max(width_, width);
        return;
    }
    LongLine& chunks = longLine(line, bounds);
    for (std::size_t i = chunks.chunkAtX(left); i < chunks.chunkCount(); ++i) {
        const double x = chunks.startOf(i);
        if (x >= right) break;
        chunks.setWidth(i, visit(chunkOf(*text_, bounds, i), x));
        width_ = std::max(width_, chunks.endOf(i));
    }
}

}  // namespace marquell::window
