// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "platform/LinedText.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

// Where the caret goes from a place in a text. A break counts as one character, and none is ever
// parted from the marks that belong to it. All take offsets up to the text's length, which is where
// there is no going on.

std::size_t nextCharacter(const platform::LinedText& text, std::size_t offset);
std::size_t previousCharacter(const platform::LinedText& text, std::size_t offset);
/// The start of the character that the byte is in.
std::size_t characterStart(const platform::LinedText& text, std::size_t offset);

/// The start of the next word, of this line or the next one.
std::size_t nextWord(const platform::LinedText& text, std::size_t offset);
std::size_t previousWord(const platform::LinedText& text, std::size_t offset);
/// The word, blanks or sign at a place.
TextRange wordAt(const platform::LinedText& text, std::size_t offset);

}  // namespace marquell::window
