// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace marquell::helpers {

/// "=?charset?B?text?=", by which RFC 2047 has other characters than ASCII in e-mail.
struct EncodedWord {
    std::string_view charset;
    bool isBase64 = false;  ///< else quoted-printable
    std::string_view text;
    std::size_t length = 0;  ///< of all of it
};

/// The one that the text begins with.
std::optional<EncodedWord> encodedWordAt(std::string_view text);

/// The text of a header as clean UTF-8. What stands outside encoded words is in the likely
/// encoding.
std::string decodedWords(std::string_view text);

}  // namespace marquell::helpers
