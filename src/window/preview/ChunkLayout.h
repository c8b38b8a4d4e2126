// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "window/preview/TextPiece.h"

namespace marquell::window {

/// A chunk of a line as it is drawn, with marks for invisible characters and from left to right as
/// a whole, whatever writing it begins with. It is cut into pieces, of which only those are laid
/// out that are asked about: marks are long, and many of them are mostly out of view. Offsets in
/// bytes from the chunk's start, lengths in px from its left edge.
class ChunkLayout {
public:
    /// Text and measure have to outlive it. The colours matter for drawing only.
    ChunkLayout(std::string_view text, const PageMeasure& measure, const TextColors& colors = {});

    double width() const { return width_; }
    double xOf(std::size_t offset) const;
    /// The boundary of a character that is nearest.
    std::size_t offsetAt(double x) const;

    /// What the bytes cover. More than one where the chunk is cut.
    std::vector<Span> spansOf(const TextRange& range) const;

    /// `start`: of the baseline. Draws what is to be seen within a span of the painter.
    void draw(QPainter& painter, const QPointF& start, const Span& inView) const;

private:
    struct Piece {
        TextRange bytes;
        double x;
        double width;
        mutable std::unique_ptr<const TextPiece> layout;  // made when it is first asked for
    };

    void addPiece(const TextRange& bytes);
    bool isTab(const Piece& piece) const { return text_[piece.bytes.start] == '\t'; }
    std::string_view textOf(const Piece& piece) const;
    const TextPiece& layoutOf(const Piece& piece) const;

    std::string_view text_;
    const PageMeasure& measure_;
    TextColors colors_;
    std::vector<Piece> pieces_;
    double width_ = 0;
};

}  // namespace marquell::window
