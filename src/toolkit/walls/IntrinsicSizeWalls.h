// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSizeF>

#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {

/// A wall that asks for a size of its own, in points.
class WallWithInstrinsicSize : public Wall, public IntrinsicallySized {
public:
    explicit WallWithInstrinsicSize(const QSizeF& size, QWidget* parent = nullptr);
    IntrinsicSize intrinsicContentSize() const override;

private:
    const QSizeF myIntrinsicSize_;
};

/// The same for a view that is no wall: it holds a place in the layout and paints nothing.
class ViewWithInstrinsicSize : public QWidget, public IntrinsicallySized {
public:
    explicit ViewWithInstrinsicSize(const QSizeF& size, QWidget* parent = nullptr);
    IntrinsicSize intrinsicContentSize() const override;

private:
    const QSizeF myIntrinsicSize_;
};

}  // namespace marquell::toolkit
