// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextCaret.h"

namespace marquell::window {

void TextCaret::moveTo(std::size_t position, Selection selection) {
    position_ = position;
    if (selection == Selection::drop) anchor_ = position;
    column_.reset();
}

void TextCaret::select(const TextRange& range) {
    moveTo(range.start);
    moveTo(range.end, Selection::extend);
}

void TextCaret::moveByRows(TextGeometry& geometry, std::ptrdiff_t rows, Selection selection) {
    const TextGeometry::Place place = geometry.placeOf(position_);
    const double column = column_.value_or(place.x);
    const auto last = static_cast<std::ptrdiff_t>(geometry.text().lineCount()) - 1;
    const std::ptrdiff_t line = static_cast<std::ptrdiff_t>(place.line) + rows;
    if (line < 0) {
        moveTo(0, selection);
    } else if (line > last) {
        moveTo(geometry.text().text().size(), selection);
    } else {
        moveTo(geometry.offsetAt(static_cast<std::size_t>(line), column), selection);
    }
    column_ = column;
}

}  // namespace marquell::window
