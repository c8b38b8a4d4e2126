// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/ControlBox.h"

#include <QStyleOption>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {
namespace {

/// Points.
struct ControlMeasure {
    double radius, popupPadding, popupField;
};

const ControlMeasure& measureOf(ControlSize size) {
    static constexpr ControlMeasure measures[] = {{6, 10, 25}, {5, 8, 24}, {4, 8, 24}};
    return measures[static_cast<std::size_t>(size)];
}

/// The colours of one kind of box in the states that exclude each other.
struct BoxRoles {
    ColorRole usual, hovered, pressed, disabled;
};

constexpr BoxRoles plainFill = {ColorRole::controlFill, ColorRole::controlFillHover,
                                ColorRole::controlFillPressed, ColorRole::controlFillDisabled};
constexpr BoxRoles plainBorder = {ColorRole::controlBorder, ColorRole::controlBorderHover,
                                  ColorRole::controlBorder, ColorRole::controlBorderDisabled};
constexpr BoxRoles plainText = {ColorRole::text, ColorRole::text, ColorRole::text,
                                ColorRole::disabledText};
constexpr BoxRoles accentFill = {ColorRole::accentFill, ColorRole::accentFillHover,
                                 ColorRole::accentFillPressed, ColorRole::accentFillDisabled};
constexpr BoxRoles accentText = {ColorRole::accentText, ColorRole::accentText,
                                 ColorRole::accentText, ColorRole::disabledText};

ColorRole roleIn(ControlState state, const BoxRoles& roles) {
    if (!state.enabled) return roles.disabled;
    if (state.pressed) return roles.pressed;
    return state.hovered ? roles.hovered : roles.usual;
}

QColor glyphFill(ControlState state, Surface surface) {
    if (!state.enabled || !(state.hovered || state.pressed)) return {};
    return color(state.pressed ? ColorRole::glyphPressed : ColorRole::glyphHover, surface);
}

}  // namespace

ControlState controlStateOf(const QStyleOption& option) {
    return {.enabled = bool(option.state & QStyle::State_Enabled),
            .hovered = bool(option.state & QStyle::State_MouseOver),
            .pressed = bool(option.state & QStyle::State_Sunken)};
}

ControlColors controlColors(ControlState state, Surface surface, ButtonRole role) {
    // The column has one kind of box only: a filled one would be lost on its blue.
    if (role == ButtonRole::accent && surface == Surface::column) role = ButtonRole::plain;
    const auto colorOf = [&](const BoxRoles& roles) {
        return color(roleIn(state, roles), surface);
    };
    switch (role) {
        case ButtonRole::glyph:
            return {glyphFill(state, surface), QColor(), colorOf(plainText)};
        case ButtonRole::accent:
            return {colorOf(accentFill), QColor(), colorOf(accentText)};
        case ButtonRole::plain:
            break;
    }
    return {colorOf(plainFill), colorOf(plainBorder), colorOf(plainText)};
}

double controlRadius(ControlSize size) { return measureOf(size).radius * metrics().scale(); }

int popupPadding(ControlSize size) { return metrics().px(measureOf(size).popupPadding); }

int popupFieldWidth(ControlSize size) { return metrics().px(measureOf(size).popupField); }

QRectF popupChevronBox(const QRectF& popup) {
    const double room = 2.0 * metrics().px(15);
    return {popup.right() - room, popup.y(), room, popup.height()};
}

void drawBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
             const QColor& border) {
    const QRectF box = snapped(painter, rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!border.isValid()) {
        if (fill.isValid()) {
            painter.setBrush(fill);
            painter.drawRoundedRect(box, radius, radius);
        }
        painter.restore();
        return;
    }
    const double line = hairline(painter);
    const double half = line / 2;
    painter.setPen(QPen(border, line));
    if (fill.isValid()) painter.setBrush(fill);
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), radius - half, radius - half);
    painter.restore();
}

void drawControlBox(QPainter& painter, const QRectF& rect, double radius, ControlState state,
                    Surface surface, ButtonRole role) {
    const ControlColors colors = controlColors(state, surface, role);
    drawBox(painter, rect, radius, colors.fill, colors.border);
}

}  // namespace marquell::toolkit
