// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/ArrowPainting.h"

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {
namespace {

double quarterTurns(Qt::ArrowType direction) {
    switch (direction) {
        case Qt::LeftArrow:
            return 1;
        case Qt::UpArrow:
            return 2;
        case Qt::RightArrow:
            return 3;
        default:
            return 0;
    }
}

}  // namespace

void drawChevron(QPainter& painter, Qt::ArrowType direction, const QRectF& box,
                 const QColor& color) {
    painter.save();
    painter.translate(snapped(painter, box.center()));
    painter.rotate(90 * quarterTurns(direction));
    drawGlyph(painter, Glyph::chevronDown, QRectF(), color);
    painter.restore();
}

template <Qt::ArrowType direction>
void paintArrow(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const ControlColors colors = controlColors(controlStateOf(option), surfaceOf(widget));
    drawChevron(painter, direction, option.rect, colors.text);
}

template void paintArrow<Qt::UpArrow>(const QStyleOption&, QPainter&, const QWidget*);
template void paintArrow<Qt::DownArrow>(const QStyleOption&, QPainter&, const QWidget*);
template void paintArrow<Qt::LeftArrow>(const QStyleOption&, QPainter&, const QWidget*);
template void paintArrow<Qt::RightArrow>(const QStyleOption&, QPainter&, const QWidget*);

void paintBranch(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    if (!(option.state & QStyle::State_Children)) return;
    const bool selected = option.state & QStyle::State_Selected;
    const Qt::ArrowType closed =
        option.direction == Qt::RightToLeft ? Qt::LeftArrow : Qt::RightArrow;
    drawChevron(painter, option.state & QStyle::State_Open ? Qt::DownArrow : closed, option.rect,
                color(selected ? ColorRole::selectionText : ColorRole::text, widget));
}

}  // namespace marquell::toolkit
