// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/ChunkLayout.h"

#include <algorithm>
#include <utility>

#include "toolkit/look/VisibleText.h"

namespace marquell::window {
namespace {

constexpr std::size_t enoughForPiece = 16;  // bytes

/// Where the piece ends that begins at `start`. Tabs are on their own; other pieces end where a
/// mark comes, as that neither joins what is beside it nor lets writing from right to left pass.
std::size_t pieceEnd(std::string_view text, std::size_t start) {
    if (text[start] == '\t') return start + 1;
    std::size_t at = start;
    while (at < text.size() && text[at] != '\t') {
        const auto [character, length] = firstOf(text.substr(at));
        if (at - start >= enoughForPiece && toolkit::isInvisible(character)) break;
        at += length;
    }
    return at;
}

/// The last piece that begins at a place or before it, else the first.
template <typename Pieces, typename Place, typename Projection>
const auto& pieceAt(const Pieces& pieces, const Place& place, Projection projection) {
    const auto behind = std::ranges::upper_bound(pieces, place, {}, projection);
    return behind == pieces.begin() ? pieces.front() : *std::prev(behind);
}

}  // namespace

ChunkLayout::ChunkLayout(std::string_view text, const PageMeasure& measure,
                         const TextColors& colors)
    : text_(text), measure_(measure), colors_(colors) {
    for (std::size_t start = 0; start < text.size(); start = pieces_.back().bytes.end) {
        addPiece({start, pieceEnd(text, start)});
    }
}

void ChunkLayout::addPiece(const TextRange& bytes) {
    const Piece& piece = pieces_.emplace_back(Piece{bytes, width_, 0, nullptr});
    const TextAdvances& advances = measure_.advances;
    if (isTab(piece)) {
        width_ = advances.behindTab(width_);
    } else {
        const std::string_view text = textOf(piece);
        width_ += advances.isExactFor(text) ? advances.widthOf(text) : layoutOf(piece).width();
    }
    pieces_.back().width = width_ - piece.x;
}

std::string_view ChunkLayout::textOf(const Piece& piece) const {
    return text_.substr(piece.bytes.start, piece.bytes.length());
}

const TextPiece& ChunkLayout::layoutOf(const Piece& piece) const {
    if (piece.layout == nullptr) {
        piece.layout = std::make_unique<TextPiece>(textOf(piece), measure_, colors_);
    }
    return *piece.layout;
}

double ChunkLayout::xOf(std::size_t offset) const {
    if (pieces_.empty()) return 0;
    const Piece& piece =
        pieceAt(pieces_, offset, [](const Piece& each) { return each.bytes.start; });
    if (isTab(piece)) return offset == piece.bytes.start ? piece.x : piece.x + piece.width;
    return piece.x + layoutOf(piece).xOf(offset - piece.bytes.start);
}

std::size_t ChunkLayout::offsetAt(double x) const {
    if (pieces_.empty()) return 0;
    const Piece& piece = pieceAt(pieces_, x, &Piece::x);
    const double inPiece = x - piece.x;
    if (isTab(piece)) return inPiece < piece.width / 2 ? piece.bytes.start : piece.bytes.end;
    return piece.bytes.start + layoutOf(piece).offsetAt(inPiece);
}

std::vector<Span> ChunkLayout::spansOf(const TextRange& range) const {
    std::vector<Span> spans;
    for (const Piece& piece : pieces_) {
        const std::size_t start = std::max(range.start, piece.bytes.start);
        const std::size_t end = std::min(range.end, piece.bytes.end);
        if (start >= end) continue;
        if (end - start == piece.bytes.length()) {
            spans.push_back({piece.x, piece.x + piece.width});
            continue;
        }
        const std::size_t base = piece.bytes.start;
        for (const Span& span : layoutOf(piece).spansOf({start - base, end - base})) {
            spans.push_back({piece.x + span.left, piece.x + span.right});
        }
    }
    return spans;
}

void ChunkLayout::draw(QPainter& painter, const QPointF& start, const Span& inView) const {
    for (const Piece& piece : pieces_) {
        const double left = start.x() + piece.x;
        const double overhang = measure_.rowHeight;  // and more than that, of any letter
        const bool isInView =
            left - overhang < inView.right && left + piece.width + overhang > inView.left;
        if (!isInView || isTab(piece)) continue;
        layoutOf(piece).draw(painter, QPointF(left, start.y()));
    }
}

}  // namespace marquell::window
