// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/walls/Wall.h"
#include "window/column/OptionMenus.h"

namespace marquell::window {

/// Puts the labels, popups and boxes of a panel on a wall of the column, bound to their settings.
void buildOptionPanel(toolkit::Wall& wall, const OptionPanel& panel,
                      const pipeline::DataModel& dataModel);

}  // namespace marquell::window
