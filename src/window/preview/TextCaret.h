// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

#include "window/preview/TextGeometry.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

/// Where the caret stands in a text, and from where to there the selection reaches. Both are always
/// at the boundary of a character.
class TextCaret {
public:
    enum class Selection { drop, extend };

    std::size_t position() const { return position_; }
    std::size_t anchor() const { return anchor_; }
    TextRange selection() const {
        return {std::min(anchor_, position_), std::max(anchor_, position_)};
    }

    void moveTo(std::size_t position, Selection selection = Selection::drop);
    void select(const TextRange& range);

    /// Moves by rows, as near as can be to the column where a row of such moves began.
    void moveByRows(TextGeometry& geometry, std::ptrdiff_t rows, Selection selection);

private:
    std::size_t position_ = 0;
    std::size_t anchor_ = 0;
    std::optional<double> column_;  // px
};

}  // namespace marquell::window
