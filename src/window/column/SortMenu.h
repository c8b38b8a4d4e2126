// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::toolkit {
class PopUpButtonBrick;
}

namespace marquell::window {

/// Gives the popup the sixteen sort modes, whose indices are their numbers.
void addSortModes(toolkit::PopUpButtonBrick& popUp);

}  // namespace marquell::window
