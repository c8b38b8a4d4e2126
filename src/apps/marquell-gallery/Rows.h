// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Sheet.h"

namespace marquell::gallery {

/// The lower part of the states of the column: separator, scroll bars, list rows in both modes.
void addColumnRows(Sheet& sheet);

/// The lower part of the states of light and dark pages: rows, an open list, scroll bars, tabs.
void addPageRows(Sheet& sheet);

}  // namespace marquell::gallery
