// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::toolkit {

/// Has assistive programs see the bricks as what they are: popups by their label and choice,
/// painted bricks with role, name and state. Later calls do nothing.
void provideBrickAccessibility();

}  // namespace marquell::toolkit
