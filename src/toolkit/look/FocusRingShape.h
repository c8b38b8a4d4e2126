// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>

#include "toolkit/look/FocusRing.h"

namespace marquell::toolkit {

/// Where the ring of a control lies.
struct FocusRingShape {
    FocusRingPlace place = FocusRingPlace::outside;
    QRectF rect;  // what it lies about, in the control's coordinates
    double radius = 0;

    /// The outer edge of the ring, and the radius there.
    QRectF outerRect() const;
    double outerRadius() const;

    bool operator==(const FocusRingShape&) const = default;
};

/// The width of the ring, in px.
double focusRingWidth();

/// What the control says, or what is usual for one of its kind.
FocusRingShape focusRingShapeOf(const QWidget& control);

/// True of fields to write in, which show the ring however they got the focus.
bool takesWriting(const QWidget& control);

}  // namespace marquell::toolkit
