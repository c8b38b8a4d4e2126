// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace marquell::window {

/// Asks the user for files and folders, several of both at once; the paths in the order of the
/// panel, none if they don't want to. Runs the event loop meanwhile: `parent` may be gone when it
/// returns.
std::vector<std::string> runSourcePanel(QWidget* parent);

}  // namespace marquell::window
