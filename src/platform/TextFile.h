// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/EncodedText.h"
#include "platform/TextEncoding.h"

namespace marquell::platform {

struct TextWriteProblem {
    int error = 0;  ///< errno; EILSEQ if the encoding lacks a character of the text
    std::optional<UnencodableCharacter> unencodable;
};

// Both take well-formed UTF-8. A character that the encoding lacks is looked for before the first
// byte is written anywhere: a FIFO or standard output then gets nothing either.

/// Puts the text at `path` whole or not at all, as writeFileAtomically does. Absent on success.
std::optional<TextWriteProblem> writeTextFile(const std::string& path, std::string_view text,
                                              TextEncoding encoding);

/// Writes the text to an open descriptor. Absent on success.
std::optional<TextWriteProblem> writeText(int descriptor, std::string_view text,
                                          TextEncoding encoding);

}  // namespace marquell::platform
