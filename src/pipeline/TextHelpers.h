// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Escapes.h"

namespace marquell::pipeline {

// All of these take and give UTF-8.

/// Pads each run of number characters with "0" in front to 32 characters, so that plain text
/// comparison orders numbers in names by value.
std::string stringByExpandingAllNumberGroups(std::string_view text);
/// The same, appended.
void appendByExpandingAllNumberGroups(std::string& result, std::string_view text);

/// Line feeds, carriage returns and tabs as backslash and letter. Backslashes are not doubled.
std::string withEncodedLineBreaksAndTabs(std::string_view text);
/// What it replaces, for formats that have more to escape.
inline constexpr platform::Escapes lineBreakAndTabEscapes = {
    {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};

/// The elements, newline characters trimmed from both ends of each, with ", " between them.
std::string asCommaSeparatedString(const std::vector<std::string>& elements);

}  // namespace marquell::pipeline
