// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

#include "toolkit/look/ButtonRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/Surface.h"

class QStyleOption;

namespace marquell::toolkit {

/// What a control is going through; decides its colours within its surface.
struct ControlState {
    bool enabled = true;
    bool hovered = false;
    bool pressed = false;
};

ControlState controlStateOf(const QStyleOption& option);

/// The colours of a control's box; an invalid colour is not drawn.
struct ControlColors {
    QColor fill;
    QColor border;
    QColor text;  // and glyphs
};

ControlColors controlColors(ControlState state, Surface surface,
                            ButtonRole role = ButtonRole::plain);

/// The radius of a control's corners, in px.
double controlRadius(ControlSize size);

/// The room before the text of a popup or field, in px.
int popupPadding(ControlSize size);

/// The room at the end of a popup that its text keeps free of, in px.
int popupFieldWidth(ControlSize size);

/// What the chevron of a popup lies in the middle of, drawn from left to right.
QRectF popupChevronBox(const QRectF& popup);

/// A rounded rectangle with a border of one point inside its edges, all on whole device pixels.
void drawBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
             const QColor& border);

/// The box of a button, popup or field; no text.
void drawControlBox(QPainter& painter, const QRectF& rect, double radius, ControlState state,
                    Surface surface, ButtonRole role = ButtonRole::plain);

}  // namespace marquell::toolkit
