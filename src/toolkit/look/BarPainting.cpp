// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/BarPainting.h"

#include <QPainter>
#include <QSlider>
#include <algorithm>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

constexpr double grooveWidth = 4;  // points
constexpr double tickLength = 4;
constexpr double handleSize = 16;
constexpr double progressText = 44;

QColor barColor(const QStyleOption& option, Surface surface) {
    const bool enabled = option.state & QStyle::State_Enabled;
    if (!enabled) return color(ColorRole::controlBorderDisabled, surface);
    return color(ColorRole::selectedSegmentBorder, surface);
}

/// The middle line of a rectangle, as wide as a groove.
QRectF grooveIn(const QRectF& rect, bool horizontal) {
    const double width = grooveWidth * metrics().scale();
    QRectF groove = rect;
    if (horizontal) {
        groove.setHeight(width);
    } else {
        groove.setWidth(width);
    }
    groove.moveCenter(rect.center());
    return groove;
}

void drawGroove(QPainter& painter, const QRectF& groove, const QColor& fill) {
    drawBox(painter, groove, std::min(groove.width(), groove.height()) / 2, fill, QColor());
}

void drawTicks(const QStyleOptionSlider& slider, QPainter& painter, const QRectF& handle,
               const QColor& color) {
    const int step = slider.tickInterval > 0 ? slider.tickInterval : slider.pageStep;
    if (slider.tickPosition == QSlider::NoTicks || step <= 0) return;
    const bool horizontal = slider.orientation == Qt::Horizontal;
    const QRectF rect(slider.rect);
    const double thumb = horizontal ? handle.width() : handle.height();
    const int room = static_cast<int>((horizontal ? rect.width() : rect.height()) - thumb);
    const double length = tickLength * metrics().scale();
    for (int value = slider.minimum; value <= slider.maximum; value += step) {
        const double at =
            thumb / 2 + QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, value, room,
                                                        slider.upsideDown);
        const QPointF above =
            horizontal ? QPointF(rect.x() + at, rect.y()) : QPointF(rect.x(), rect.y() + at);
        const QPointF below = horizontal ? QPointF(rect.x() + at, rect.bottom() - length)
                                         : QPointF(rect.right() - length, rect.y() + at);
        const QSizeF size =
            horizontal ? QSizeF(hairline(painter), length) : QSizeF(length, hairline(painter));
        if (slider.tickPosition & QSlider::TicksAbove) {
            painter.fillRect(QRectF(snapped(painter, above), size), color);
        }
        if (slider.tickPosition & QSlider::TicksBelow) {
            painter.fillRect(QRectF(snapped(painter, below), size), color);
        }
        if (slider.maximum - value < step) break;
    }
}

/// The part of the groove that is done.
QRectF reachedPart(const QStyleOptionProgressBar& bar, const QRectF& groove) {
    QRectF reached = groove;
    const double range = static_cast<double>(bar.maximum) - bar.minimum;
    // One that knows no end is shown full: moving it would be no progress either.
    const double part = range <= 0 ? 1 : std::clamp((bar.progress - bar.minimum) / range, 0.0, 1.0);
    const bool fromEnd = bar.invertedAppearance != (bar.direction == Qt::RightToLeft);
    if (!(bar.state & QStyle::State_Horizontal)) {
        const double length = reached.height() * part;
        bar.invertedAppearance ? reached.setHeight(length)
                               : reached.setTop(reached.bottom() - length);
    } else if (fromEnd) {
        reached.setLeft(reached.right() - reached.width() * part);
    } else {
        reached.setWidth(reached.width() * part);
    }
    return reached;
}

}  // namespace

void paintSlider(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& slider = static_cast<const QStyleOptionSlider&>(option);
    const Surface surface = surfaceOf(widget);
    const bool horizontal = slider.orientation == Qt::Horizontal;
    const QRectF handle = QStyle::visualRect(option.direction, option.rect,
                                             sliderPart(QStyle::SC_SliderHandle, option, widget));
    const QRectF groove = grooveIn(sliderPart(QStyle::SC_SliderGroove, option, widget), horizontal);
    const ControlColors colors = controlColors(controlStateOf(option), surface);
    drawTicks(slider, painter, handle, colors.border);
    drawGroove(painter, groove, color(ColorRole::controlBorderDisabled, surface));
    QRectF reached = groove;
    if (horizontal) {
        slider.upsideDown ? reached.setLeft(handle.center().x())
                          : reached.setRight(handle.center().x());
    } else {
        slider.upsideDown ? reached.setTop(handle.center().y())
                          : reached.setBottom(handle.center().y());
    }
    drawGroove(painter, reached, barColor(option, surface));
    drawBox(painter, handle, handle.width() / 2, colors.fill, colors.border);
}

void paintProgressBar(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& bar = static_cast<const QStyleOptionProgressBar&>(option);
    const bool horizontal = option.state & QStyle::State_Horizontal;
    const int labelWidth = bar.textVisible && horizontal ? metrics().px(progressText) : 0;
    const auto mirrored = [&](const QRect& rect) {
        return QStyle::visualRect(option.direction, option.rect, rect);
    };
    const QRectF groove =
        grooveIn(mirrored(option.rect.adjusted(0, 0, -labelWidth, 0)), horizontal);
    drawGroove(painter, groove, color(ColorRole::controlBorderDisabled, widget));
    const QRectF reached = reachedPart(bar, groove);
    if (!reached.isEmpty()) drawGroove(painter, reached, barColor(option, surfaceOf(widget)));
    if (labelWidth == 0) return;
    const QRect label = option.rect.adjusted(option.rect.width() - labelWidth, 0, 0, 0);
    painter.setPen(controlColors(controlStateOf(option), surfaceOf(widget)).text);
    drawTextLine(painter, mirrored(label), bar.text, Qt::AlignTrailing);
}

QRect sliderPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* /*widget*/) {
    const auto& slider = static_cast<const QStyleOptionSlider&>(option);
    const bool horizontal = slider.orientation == Qt::Horizontal;
    const QRect& rect = option.rect;
    const int side = metrics().px(handleSize);
    const int length = (horizontal ? rect.width() : rect.height()) - side;
    const int at = QStyle::sliderPositionFromValue(
        slider.minimum, slider.maximum, slider.sliderPosition, length, slider.upsideDown);
    int across = ((horizontal ? rect.height() : rect.width()) - side) / 2;
    // The handle makes room for ticks on one side.
    const int aside = metrics().px(tickLength / 2);
    if (slider.tickPosition & QSlider::TicksAbove) across += aside;
    if (slider.tickPosition & QSlider::TicksBelow) across -= aside;
    switch (part) {
        case QStyle::SC_SliderHandle:
            return horizontal ? QRect(rect.x() + at, rect.y() + across, side, side)
                              : QRect(rect.x() + across, rect.y() + at, side, side);
        case QStyle::SC_SliderGroove:
            return horizontal ? QRect(rect.x(), rect.y() + across, rect.width(), side)
                              : QRect(rect.x() + across, rect.y(), side, rect.height());
        case QStyle::SC_SliderTickmarks:
            return rect;
        default:
            return {};
    }
}

}  // namespace marquell::toolkit
