// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/HeaderPainting.h"

#include <QFontMetrics>
#include <QPainter>

#include "toolkit/look/ArrowPainting.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double textLeft = 6;
constexpr double textRight = 4;
constexpr double separatorTop = 5;
constexpr double separatorHeight = 13;
constexpr double arrowRoom = 16;

bool isSorted(const QStyleOptionHeader& header) {
    return header.sortIndicator != QStyleOptionHeader::None;
}

QRect labelRect(const QStyleOption& option) {
    const auto& header = static_cast<const QStyleOptionHeader&>(option);
    const int arrow = isSorted(header) ? metrics().px(arrowRoom) : 0;
    return option.rect.adjusted(metrics().px(textLeft), 0, -metrics().px(textRight) - arrow, 0);
}

QRect arrowRect(const QStyleOption& option) {
    const QRect& rect = option.rect;
    return rect.adjusted(rect.width() - metrics().px(arrowRoom) - metrics().px(textRight), 0,
                         -metrics().px(textRight), 0);
}

void paintSeparator(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& header = static_cast<const QStyleOptionHeader&>(option);
    if (header.orientation == Qt::Vertical) return;
    const QRectF box(option.rect);
    const double line = hairline(painter);
    const double x = option.direction == Qt::RightToLeft ? box.x() : box.right() - line;
    const QRectF separator(x, box.y() + metrics().px(separatorTop), line,
                           metrics().px(separatorHeight));
    painter.fillRect(separator, color(ColorRole::headerLine, widget));
}

void paintLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& header = static_cast<const QStyleOptionHeader&>(option);
    QRectF box(option.rect);
    if (!header.icon.isNull()) {
        const int size = metrics().px(16);
        header.icon.paint(&painter, option.rect, Qt::AlignVCenter | Qt::AlignLeading);
        box.setLeft(box.left() + size + metrics().px(textRight));
    }
    const bool enabled = option.state & QStyle::State_Enabled;
    painter.setPen(color(enabled ? ColorRole::headerText : ColorRole::disabledText, widget));
    drawTextLine(painter, box, header.text, header.textAlignment);
}

void paintSortArrow(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& header = static_cast<const QStyleOptionHeader&>(option);
    const bool down = header.sortIndicator == QStyleOptionHeader::SortDown;
    drawChevron(painter, down ? Qt::DownArrow : Qt::UpArrow, option.rect,
                color(ColorRole::headerText, widget));
}

}  // namespace

void paintHeader(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    QStyleOptionHeader part = static_cast<const QStyleOptionHeader&>(option);
    const auto placeAt = [&](const QRect& rect) {
        part.rect = QStyle::visualRect(option.direction, option.rect, rect);
    };
    painter.setClipRect(option.rect);
    paintHeaderGround(option, painter, widget);
    paintSeparator(option, painter, widget);
    placeAt(labelRect(option));
    paintLabel(part, painter, widget);
    if (!isSorted(part)) return;
    placeAt(arrowRect(option));
    paintSortArrow(part, painter, widget);
}

void paintHeaderGround(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const QRectF box(option.rect);
    const double line = hairline(painter);
    painter.fillRect(box, color(ColorRole::header, widget));
    painter.fillRect(QRectF(box.x(), box.bottom() - line, box.width(), line),
                     color(ColorRole::headerLine, widget));
}

QSize headerSectionSize(const QStyleOptionHeader& header) {
    int width = metrics().px(textLeft) + metrics().px(textRight) +
                header.fontMetrics.horizontalAdvance(header.text);
    if (isSorted(header)) width += metrics().px(arrowRoom);
    if (!header.icon.isNull()) width += metrics().px(16 + textRight);
    return {width, metrics().rowHeight()};
}

}  // namespace marquell::toolkit
