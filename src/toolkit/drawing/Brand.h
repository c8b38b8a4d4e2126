// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QRectF>

class QPainter;

namespace marquell::toolkit {

/// Draws the logo, which is 164 x 22 points, white and without a ground, into the frame.
void drawLogo(QPainter& painter, const QRectF& frame);

/// Where the logo lies at the top of the parameter wall.
QRectF logoFrame(const QRectF& parameterWallFrame);

/// The program's icon, drawn in any size that is asked for.
QIcon applicationIcon();

}  // namespace marquell::toolkit
