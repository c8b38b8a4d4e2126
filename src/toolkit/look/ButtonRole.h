// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace marquell::toolkit {

/// How a push button stands out.
enum class ButtonRole { plain, accent, glyph };

/// `accent` is the window's default action, `glyph` an image without a frame.
void setButtonRole(QWidget* button, ButtonRole role);
ButtonRole buttonRoleOf(const QWidget* button);

}  // namespace marquell::toolkit
