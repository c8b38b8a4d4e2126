// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "window/preview/TextGeometry.h"

namespace marquell::window {

/// What of a text is in view, and what stands out in it. Lengths in px.
struct TextPage {
    TextGeometry& geometry;
    std::size_t firstLine = 0;
    double scrolledX = 0;
    TextRange selection;
    std::optional<std::size_t> caret;  ///< absent while it does not show
    /// The places that touch a range and are to be marked; none if not set.
    const std::function<std::vector<TextRange>(const TextRange& range)>& hitsIn;

    /// Of the row of a line that needn't be in view. The line before the first one is seen in part.
    int topOf(std::size_t line) const;
    /// Where the character at an offset begins.
    QRect caretRect(std::size_t offset) const;
};

/// Paints what lies in `area`, in the colours of the view.
void paintTextPage(QPainter& painter, const TextPage& page, const QRect& area, const QWidget* view);

}  // namespace marquell::window
