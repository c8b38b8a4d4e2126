// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/IndexAttributes.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Whether they are the same but for the case of ASCII letters.
bool isSameName(std::string_view one, std::string_view other);

std::string lowerCase(std::string_view ascii);

bool isBlank(char byte);
bool isDigit(char byte);
bool isLetter(char byte);  ///< of ASCII

/// The text without white space (of ASCII) at its ends.
std::string_view trimmed(std::string_view text);

/// The same with each white space in it made one blank.
std::string collapsed(std::string_view text);

}  // namespace marquell::helpers
