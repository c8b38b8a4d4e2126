// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QRegion>
#include <QWidget>

namespace marquell::toolkit {

/// What goes with the pointer when rows are dragged: how they look in the view, and where there are
/// several, their number beside the pointer. As large as the region.
QPixmap dragPicture(QWidget& viewport, const QRegion& rows, const QPoint& pointer, int count);

}  // namespace marquell::toolkit
