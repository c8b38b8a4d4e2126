// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/BricksDrawingHelper.h"

#include <algorithm>

namespace marquell::toolkit {
namespace {

template <typename Asset>
const Asset* firstOf(const std::vector<DrawingAsset>& assets) {
    const auto found = std::find_if(assets.begin(), assets.end(), [](const DrawingAsset& asset) {
        return std::holds_alternative<Asset>(asset);
    });
    return found == assets.end() ? nullptr : std::get_if<Asset>(&*found);
}

void drawByFunction(QPainter& painter, const QRectF& frame, const ButtonDrawingFuncType& function,
                    const std::vector<DrawingAsset>& assets) {
    if (const auto* text = std::get_if<TextDrawing>(&function)) {
        if (const auto* title = firstOf<QString>(assets)) text->function(painter, frame, *title);
    } else if (const auto* image = std::get_if<ImageDrawing>(&function)) {
        if (const auto* pixmap = firstOf<QPixmap>(assets)) {
            image->function(painter, frame, *pixmap);
        }
    } else {
        std::get<PlainDrawing>(function).function(painter, frame);
    }
}

}  // namespace

void BricksDrawingHelper::draw(QPainter& painter, const QRectF& frame, const DrawPair& drawPair,
                               BrickType& callingBrick, const std::vector<DrawingAsset>& assets) {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    if (drawPair.function) {
        drawByFunction(painter, frame, *drawPair.function, assets);
    } else if (drawPair.stack) {
        drawPair.stack->draw(painter, frame);
    } else {
        callingBrick.delegateDrawingToSuper(painter, frame);
    }
    painter.restore();
}

}  // namespace marquell::toolkit
