// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::helpers {

// Texts of files, whose encoding is declared, likely or neither. All results are clean UTF-8:
// they end before trailing NULs and blanks, and hold no control characters but tab and line breaks.

enum class Charset {
    likely,       ///< UTF-8 if it is valid as such, else windows1252
    windows1252,  ///< with it ISO Latin 1
    utf16BigEndian,
    utf16LittleEndian,
    jis,  ///< ISO-2022-JP, as EXIF has it
    latin2,
    latin3,
    latin4,
    cyrillic,  ///< this and the next five as in ISO 8859
    arabic,
    greek,
    hebrew,
    latin5,
    latin9,
    windows1250,
    windows1251,
    koi8,
    shiftJis,
    eucJp,
    eucKr,
    gb18030,  ///< with it GBK and GB 2312
    big5,
};

std::string decodedText(std::string_view bytes, Charset charset);

/// Whether bytes of no declared kind are a text for people: valid UTF-8 without control characters,
/// and not empty, trailing NULs and blanks apart.
bool isReadableText(std::string_view bytes);

/// Opens what decoding needs from the system, for a process that can't open files later.
void prepareDecoding();

}  // namespace marquell::helpers
