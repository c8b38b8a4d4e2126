// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace marquell::toolkit {

// Some characters show nothing, or turn around what stands beside them: with them a name passes for
// another one. Where names and values are shown, a mark stands for each.

/// Controls, those of the direction of writing among them, separators of lines, the zero-width
/// space, the soft hyphen and the byte order mark. Not what joins letters or chooses their shape:
/// some writing can't be read without.
bool isInvisible(char32_t character);

/// What stands for an invisible character, as ‹U+202E›. It keeps its place and its order whatever
/// writing is beside it, in a paragraph from left to right.
QString visibleMark(char32_t character);

/// The text in one line with a mark for each invisible character, tabs among them.
QString visibleText(const QString& text);

}  // namespace marquell::toolkit
