// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QTextLayout>
#include <string_view>
#include <vector>

#include "window/preview/DecodedText.h"
#include "window/preview/PageMeasure.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

struct Span {
    double left;
    double right;
};

struct TextColors {
    QColor text;
    QColor marks;
};

/// A piece of a chunk as it is drawn. Offsets in bytes from the piece's start, lengths in px from
/// its left edge.
class TextPiece {
public:
    /// The text has no tabs.
    TextPiece(std::string_view text, const PageMeasure& measure, const TextColors& colors);

    double width() const;
    double xOf(std::size_t offset) const;
    /// The boundary of a character that is nearest.
    std::size_t offsetAt(double x) const;

    /// What the bytes cover. More than one where writing from right to left is cut.
    std::vector<Span> spansOf(const TextRange& range) const;

    /// `start`: of the baseline.
    void draw(QPainter& painter, const QPointF& start) const;

private:
    void addText(std::string_view text, QList<QTextLayout::FormatRange>& marks);
    void layOut(const PageMeasure& measure, const QList<QTextLayout::FormatRange>& marks);
    int unitAt(double x) const;

    TextColors colors_;
    DecodedText shown_;
    QTextLayout layout_;
    QTextLine line_;
    bool hasRightToLeft_ = false;
};

}  // namespace marquell::window
