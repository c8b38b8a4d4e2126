// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPainter>
#include <functional>

namespace marquell::toolkit {

/// An icon that is drawn anew in each size, so that it is sharp in all of them.
QIcon vectorIcon(std::function<void(QPainter& painter, const QRectF& frame)> draw);

}  // namespace marquell::toolkit
