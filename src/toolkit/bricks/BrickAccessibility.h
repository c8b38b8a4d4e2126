// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace marquell::toolkit {

/// Has assistive programs see the bricks as what they are: popups by their label and choice,
/// painted bricks with role, name and state. Later calls do nothing.
void provideBrickAccessibility();

/// What assistive programs call a view.
QString accessibleNameOf(QWidget* view);

}  // namespace marquell::toolkit
