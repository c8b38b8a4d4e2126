// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/ColumnListData.h"

namespace marquell::toolkit {
class PullDownButtonBrick;
}

namespace marquell::window {

/// Gives the button a menu of all columns, one submenu for each of their spaces, that adds the
/// chosen one to the list. The menu is filled when it opens for the first time. The list has to
/// outlive the button.
void offerColumns(toolkit::PullDownButtonBrick& button, lists::ColumnListData& columnList);

}  // namespace marquell::window
