// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/ButtonPainting.h"

#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "toolkit/look/ArrowPainting.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/TextLine.h"
#include "toolkit/look/ViewLook.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double iconGap = 6;
constexpr double indicatorSize = 16;
constexpr double indicatorRadius = 4;
constexpr double indicatorGap = 8;  // before the label, and behind it

ControlState buttonStateOf(const QStyleOption& option) {
    ControlState state = controlStateOf(option);
    state.pressed |= bool(option.state & QStyle::State_On);
    return state;
}

QIcon::Mode iconModeOf(const QStyleOption& option) {
    return option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
}

/// Where image and text lie, in the middle of the box together.
struct LabelPlaces {
    QRectF icon, text;
};

LabelPlaces placesOf(const QStyleOptionButton& option, const QFontMetricsF& font,
                     const QString& text, const QRectF& box) {
    if (option.icon.isNull()) return {QRectF(), box};
    const double gap = text.isEmpty() ? 0 : metrics().px(iconGap);
    const double iconWidth = option.iconSize.width();
    const double textRoom = std::max(0.0, box.width() - iconWidth - gap);
    const double textWidth = std::min(font.horizontalAdvance(text), textRoom);
    const double left = box.x() + (box.width() - iconWidth - gap - textWidth) / 2;
    const double iconTop = box.center().y() - option.iconSize.height() / 2.0;
    const QRectF icon(QPointF(left, iconTop), option.iconSize);
    // Not cut by less than a px of rounding.
    return {icon, QRectF(icon.right() + gap, box.y(), textWidth + 1, box.height())};
}

void drawTick(const QStyleOption& option, QPainter& painter, const QColor& color) {
    const QRectF box(option.rect);
    if (option.state & QStyle::State_NoChange) {
        const double half = 4 * metrics().scale();
        const double thick = sharpWidth(painter, 2 * metrics().scale());
        const QPointF middle = snapped(painter, box.center() - QPointF(0, thick / 2));
        painter.fillRect(QRectF(middle.x() - half, middle.y(), 2 * half, thick), color);
    } else if (option.state & QStyle::State_On) {
        drawGlyph(painter, Glyph::check, box, color);
    }
}

ControlColors indicatorColors(const QStyleOption& option, const QWidget* widget) {
    const bool set = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const Surface surface = surfaceOf(widget);
    ControlColors colors = controlColors(controlStateOf(option), surface,
                                         set ? ButtonRole::accent : ButtonRole::plain);
    if (!(option.state & QStyle::State_Enabled)) {
        colors.border = color(ColorRole::controlBorderDisabled, surface);
    }
    return colors;
}

void paintPushButtonLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& button = static_cast<const QStyleOptionButton&>(option);
    const ControlColors colors =
        controlColors(buttonStateOf(option), surfaceOf(widget), shownButtonRole(widget));
    const QString text = textOfTitle(button.text);
    QRect box = option.rect;
    if (button.features & QStyleOptionButton::HasMenu) {
        const auto mirrored = [&](const QRect& rect) {
            return QStyle::visualRect(option.direction, option.rect, rect);
        };
        drawChevron(painter, Qt::DownArrow, mirrored(popupChevronBox(box).toRect()), colors.text);
        box = mirrored(box.adjusted(0, 0, -popupFieldWidth(controlSizeOf(widget)), 0));
    }
    const LabelPlaces places = placesOf(button, QFontMetricsF(painter.font()), text, box);
    if (!button.icon.isNull()) {
        button.icon.paint(&painter, places.icon.toRect(), Qt::AlignCenter, iconModeOf(option));
    }
    painter.setPen(colors.text);
    drawTextLine(painter, places.text, text, Qt::AlignHCenter);
}

void paintCheckLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& button = static_cast<const QStyleOptionButton&>(option);
    const QString text = textOfTitle(button.text);
    QRectF box(option.rect);
    if (!button.icon.isNull()) {
        button.icon.paint(&painter, option.rect, Qt::AlignVCenter | Qt::AlignLeading,
                          iconModeOf(option));
        box.setLeft(box.left() + button.iconSize.width() + metrics().px(iconGap));
    }
    painter.setPen(controlColors(controlStateOf(option), surfaceOf(widget)).text);
    drawTextLine(painter, box, text);
}

/// Indicator and label, each in its place.
void paintCheckControl(const QStyleOption& option, QPainter& painter, const QWidget* widget,
                       void (*paintIndicator)(const QStyleOption&, QPainter&, const QWidget*)) {
    const auto mirrored = [&](const QRect& rect) {
        return QStyle::visualRect(option.direction, option.rect, rect);
    };
    const QRect& rect = option.rect;
    const int side = metrics().px(indicatorSize);
    QStyleOptionButton part = static_cast<const QStyleOptionButton&>(option);
    part.rect = mirrored({rect.x(), rect.y() + (rect.height() - side) / 2, side, side});
    paintIndicator(part, painter, widget);
    part.rect = mirrored(rect.adjusted(side + metrics().px(indicatorGap), 0, 0, 0));
    paintCheckLabel(part, painter, widget);
}

}  // namespace

void setButtonRole(QWidget* button, ButtonRole role) {
    changeLookOf(button).buttonRole = role;
    button->updateGeometry();
    button->update();
}

ButtonRole buttonRoleOf(const QWidget* button) { return lookOf(button).buttonRole; }

ButtonRole shownButtonRole(const QWidget* button) {
    const auto* pushButton = dynamic_cast<const QPushButton*>(button);
    const ButtonRole role = buttonRoleOf(button);
    if (role != ButtonRole::plain || pushButton == nullptr) return role;
    if (pushButton->isFlat()) return ButtonRole::glyph;
    return pushButton->isDefault() ? ButtonRole::accent : ButtonRole::plain;
}

void paintPushButtonBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    drawControlBox(painter, option.rect, controlRadius(controlSizeOf(widget)),
                   buttonStateOf(option), surfaceOf(widget), shownButtonRole(widget));
}

void paintPushButton(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    paintPushButtonBox(option, painter, widget);
    paintPushButtonLabel(option, painter, widget);
}

void paintToolButtonBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    drawControlBox(painter, option.rect, toolButtonRadius(), buttonStateOf(option),
                   surfaceOf(widget), ButtonRole::glyph);
}

void paintCheckBoxIndicator(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const ControlColors colors = indicatorColors(option, widget);
    drawBox(painter, option.rect, indicatorRadius * metrics().scale(), colors.fill, colors.border);
    drawTick(option, painter, colors.text);
}

void paintCellIndicator(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    paintCheckBoxIndicator(option, painter, widget);
    if (!(option.state & QStyle::State_Selected)) return;
    drawBox(painter, option.rect, indicatorRadius * metrics().scale(), QColor(),
            color(ColorRole::selectionText, widget));
}

void paintRadioIndicator(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const ControlColors colors = indicatorColors(option, widget);
    const QRectF box(option.rect);
    drawBox(painter, box, box.width() / 2, colors.fill, colors.border);
    if (!(option.state & QStyle::State_On)) return;
    const double margin = box.width() * 5 / 16;
    drawBox(painter, box.adjusted(margin, margin, -margin, -margin), box.width() / 2 - margin,
            colors.text, QColor());
}

void paintCheckBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    paintCheckControl(option, painter, widget, paintCheckBoxIndicator);
}

void paintRadioButton(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    paintCheckControl(option, painter, widget, paintRadioIndicator);
}

QSize checkBoxSize(const QStyleOptionButton& button, const QWidget* widget) {
    int width = metrics().px(indicatorSize);
    const QString text = textOfTitle(button.text);
    if (!text.isEmpty()) {
        const double advance = QFontMetricsF(button.fontMetrics).horizontalAdvance(text);
        width += static_cast<int>(std::ceil(advance)) + 2 * metrics().px(indicatorGap);
    }
    if (!button.icon.isNull()) width += button.iconSize.width() + metrics().px(iconGap);
    return {width, metrics().controlHeight(controlSizeOf(widget))};
}

double toolButtonRadius() { return 4 * metrics().scale(); }

}  // namespace marquell::toolkit
