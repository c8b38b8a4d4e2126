// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "toolkit/drawing/ControlSkin.h"

namespace marquell::toolkit {

/// The colour that a skin gives to texts of labels and fields; invalid if it gives none.
QColor labelColorOf(const ControlSkin& skin);

/// Writes the text of a field in the colour that the skin gives to labels.
void applyLabelColor(QWidget* field, const ControlSkin& skin);

}  // namespace marquell::toolkit
