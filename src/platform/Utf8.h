// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace marquell::platform {

/// Length of the ASCII run at the start.
std::size_t asciiLength(std::string_view bytes);

bool isAscii(std::string_view bytes);

/// Length in bytes (1 to 4) of the well-formed UTF-8 sequence at the start of `bytes`, which must
/// not be empty; 0 if there is none (overlong forms and surrogates count as none).
std::size_t utf8SequenceLength(std::string_view bytes);

bool isValidUtf8(std::string_view bytes);

/// The text of a name that may be any bytes: each byte outside a well-formed UTF-8 sequence
/// becomes one U+FFFD, so that two such bytes stay two characters.
std::string displayText(std::string_view bytes);

/// The code point at the start of well-formed, non-empty UTF-8 text.
char32_t firstCodePoint(std::string_view text);

/// A code point (no surrogate) as a text.
std::string utf8Text(char32_t codePoint);

}  // namespace marquell::platform
