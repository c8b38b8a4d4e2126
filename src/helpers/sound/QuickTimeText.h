// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::helpers {

/// A text of a QuickTime file beside a code of its language, as clean UTF-8: UTF-16 if it begins
/// with a byte order mark, else UTF-8 if it is valid as such, else what the kind of code stands
/// for, that of the classic Macintosh for Mac Roman.
std::string quickTimeText(std::string_view bytes, std::uint64_t languageCode);

/// The code of ISO 639-2 that a language code of a QuickTime file means; empty if it says nothing.
std::string quickTimeLanguage(std::uint64_t code);

}  // namespace marquell::helpers
