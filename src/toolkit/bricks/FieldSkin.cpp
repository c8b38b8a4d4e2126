// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/FieldSkin.h"

#include <QPalette>

namespace marquell::toolkit {

QColor labelColorOf(const ControlSkin& skin) {
    const DrawingPalette palette = skin.labelPalette();
    const auto* text = std::get_if<TextColorPalette>(&palette);
    return text ? text->color : QColor();
}

void applyLabelColor(QWidget* field, const ControlSkin& skin) {
    const QColor color = labelColorOf(skin);
    if (!color.isValid()) return;
    QPalette palette;
    palette.setColor(QPalette::Text, color);
    field->setPalette(palette);
}

}  // namespace marquell::toolkit
