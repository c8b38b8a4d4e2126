// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/walls/IntrinsicSizeWalls.h"

#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

IntrinsicSize inPixels(const QSizeF& points) {
    return {double(metrics().px(points.width())), double(metrics().px(points.height()))};
}

}  // namespace

WallWithInstrinsicSize::WallWithInstrinsicSize(const QSizeF& size, QWidget* parent)
    : Wall(parent), myIntrinsicSize_(size) {}

IntrinsicSize WallWithInstrinsicSize::intrinsicContentSize() const {
    return inPixels(myIntrinsicSize_);
}

ViewWithInstrinsicSize::ViewWithInstrinsicSize(const QSizeF& size, QWidget* parent)
    : QWidget(parent), myIntrinsicSize_(size) {}

IntrinsicSize ViewWithInstrinsicSize::intrinsicContentSize() const {
    return inPixels(myIntrinsicSize_);
}

}  // namespace marquell::toolkit
