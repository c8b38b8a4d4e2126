// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marquell::platform {

enum class TextEncoding {
    utf8,
    utf16,  ///< little-endian behind a byte order mark
    macOSRoman,
    utf16BigEndian,
    utf16LittleEndian,
    isoLatin1,
    isoLatin2,
    iso2022JP,
    japaneseEUC,
    shiftJIS,
};

struct EncodingTraits {
    TextEncoding encoding;
    std::string_view name;    ///< as registered with IANA
    const char* converter;    ///< ICU's name of it
    std::string_view prefix;  ///< of every text, also an empty one
    bool isLegacy;            ///< has a part of Unicode's characters only, none of them decomposed
    bool isJapanese;
};

const EncodingTraits& traitsOf(TextEncoding encoding);

/// The name for messages.
inline std::string_view encodingName(TextEncoding encoding) { return traitsOf(encoding).name; }

}  // namespace marquell::platform
