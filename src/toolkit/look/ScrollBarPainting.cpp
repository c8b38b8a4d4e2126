// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/ScrollBarPainting.h"

#include <algorithm>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double endGap = 2;
constexpr double shortestThumb = 24;
constexpr double thumbWidth = 6;
constexpr double thumbWidthOnColumn = 4;

/// A stretch along the bar.
struct Stretch {
    int start, length;
};

int lengthOf(const QStyleOptionSlider& bar) {
    return bar.orientation == Qt::Horizontal ? bar.rect.width() : bar.rect.height();
}

Stretch thumbOf(const QStyleOptionSlider& bar) {
    const int gap = metrics().px(endGap);
    const int room = std::max(lengthOf(bar) - 2 * gap, 0);
    const double all = static_cast<double>(bar.maximum) - bar.minimum + bar.pageStep;
    if (bar.maximum <= bar.minimum || all <= 0) return {gap, 0};
    const int shared = static_cast<int>(room * (bar.pageStep / all));
    const int length = std::min(std::max(shared, metrics().px(shortestThumb)), room);
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      room - length, bar.upsideDown);
    return {gap + start, length};
}

QRect along(const QStyleOptionSlider& bar, const Stretch& stretch) {
    const QRect& rect = bar.rect;
    if (bar.orientation == Qt::Horizontal) {
        return {rect.x() + stretch.start, rect.y(), stretch.length, rect.height()};
    }
    return {rect.x(), rect.y() + stretch.start, rect.width(), stretch.length};
}

}  // namespace

void paintScrollBar(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& bar = static_cast<const QStyleOptionSlider&>(option);
    const Stretch thumb = thumbOf(bar);
    if (thumb.length == 0) return;
    const Surface surface = surfaceOf(widget);
    const double width =
        (surface == Surface::column ? thumbWidthOnColumn : thumbWidth) * metrics().scale();
    QRectF box = along(bar, thumb);
    const bool horizontal = bar.orientation == Qt::Horizontal;
    const double margin = ((horizontal ? box.height() : box.width()) - width) / 2;
    box = horizontal ? box.adjusted(0, margin, 0, -margin) : box.adjusted(margin, 0, -margin, 0);
    const bool active = option.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    const ColorRole role = active ? ColorRole::scrollThumbHover : ColorRole::scrollThumb;
    drawBox(painter, box, width / 2, color(role, surface), QColor());
}

QRect scrollBarPart(QStyle::SubControl part, const QStyleOption& option,
                    const QWidget* /*widget*/) {
    const auto& bar = static_cast<const QStyleOptionSlider&>(option);
    const Stretch thumb = thumbOf(bar);
    const int end = thumb.start + thumb.length;
    switch (part) {
        case QStyle::SC_ScrollBarGroove:
            return option.rect;
        case QStyle::SC_ScrollBarSlider:
            return along(bar, thumb);
        case QStyle::SC_ScrollBarSubPage:
            return along(bar, {0, thumb.start});
        case QStyle::SC_ScrollBarAddPage:
            return along(bar, {end, lengthOf(bar) - end});
        default:
            return {};
    }
}

}  // namespace marquell::toolkit
