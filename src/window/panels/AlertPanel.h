// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "lists/SourceListData.h"

class QWidget;

namespace marquell::window {

/// Shows a message that the user has to close before going on in the window, and returns at once.
void showAlertPanel(QWidget* parent, const lists::Alert& alert);

}  // namespace marquell::window
