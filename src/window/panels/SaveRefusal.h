// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "pipeline/OutputEngineDisplay.h"

namespace marquell::window {

/// Why no file can be saved at an absolute path, in a sentence for the user; empty if it can, as
/// far as can be told without writing.
QString refusalOf(const QString& path);

/// Why a text can't be saved in its encoding.
QString refusalOf(const pipeline::LackingCharacter& lacking);

}  // namespace marquell::window
