// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <vector>

#include "toolkit/bricks/BrickType.h"
#include "toolkit/bricks/DrawPair.h"

namespace marquell::toolkit {

/// Decides how a brick is drawn.
class BricksDrawingHelper {
public:
    /// Draws by the function, else by the stack, else as the brick itself does. A function for
    /// texts or images is given the first asset of its kind, and draws nothing if there is none.
    /// The painter is left as it was.
    static void draw(QPainter& painter, const QRectF& frame, const DrawPair& drawPair,
                     BrickType& callingBrick, const std::vector<DrawingAsset>& assets);
};

}  // namespace marquell::toolkit
