// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace marquell::platform {

// All of these take well-formed UTF-8 and may be called from any thread.

/// Appends the key by which texts compare without regard to case and canonical form: the UTF-8 of
/// NFD(fold(NFD(text))). Comparing keys as unsigned bytes gives code point order.
void appendCaseInsensitiveKey(std::string& key, std::string_view text);

/// Calls `visit` with each user-perceived character (extended grapheme cluster) in order. `visit`
/// must not look for characters itself: a thread has one iterator.
void forEachCharacter(std::string_view text, const std::function<void(std::string_view)>& visit);

/// Number of user-perceived characters.
std::size_t characterCount(std::string_view text);

/// Whether a user-perceived character is a number: its first code point has a Unicode numeric
/// type (digits, Roman numerals, fractions, circled numbers, ideographs such as U+4E09).
bool isNumberCharacter(std::string_view character);

}  // namespace marquell::platform
