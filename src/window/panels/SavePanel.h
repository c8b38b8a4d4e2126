// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "pipeline/OutputEngineDisplay.h"

class QWidget;

namespace marquell::window {

/// Asks the user where to save a text; the path, absent if they don't want to. It says in a line of
/// its own why a choice can't be saved to, and takes none such. Runs the event loop meanwhile:
/// `parent` may be gone when it returns.
std::optional<std::string> runSavePanel(QWidget* parent, const pipeline::SaveOffer& offer);

}  // namespace marquell::window
