// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/DrawingPalette.h"

namespace marquell::toolkit {

ShapeColors shapeColors(const DrawingPalette& palette) {
    if (const auto* frame = std::get_if<FrameColorPalette>(&palette)) {
        return {Qt::transparent, frame->color, Qt::transparent};
    }
    if (const auto* shape = std::get_if<FillAndStrokePalette>(&palette)) {
        return {shape->fill, shape->stroke, Qt::transparent};
    }
    if (const auto* shape = std::get_if<FillAndStrokeAndTextPalette>(&palette)) {
        return {shape->fill, shape->stroke, shape->textColor};
    }
    return {Qt::red, Qt::red, Qt::red};
}

GradientShapeColors gradientShapeColors(const DrawingPalette& palette) {
    if (const auto* shape = std::get_if<GradientAndStrokeAndTextPalette>(&palette)) {
        return {shape->gradient, shape->stroke, shape->textColor};
    }
    return {{{0, Qt::red}, {1, Qt::blue}}, Qt::red, Qt::red};
}

QString titleIn(const std::vector<DrawingAsset>& assets) {
    QString title;
    for (const DrawingAsset& asset : assets) {
        const auto* provider = std::get_if<std::shared_ptr<const TextProviderType>>(&asset);
        if (provider != nullptr && *provider != nullptr) title = (*provider)->getText();
    }
    return title;
}

}  // namespace marquell::toolkit
