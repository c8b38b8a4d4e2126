// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextEncoding.h"

#include <algorithm>
#include <array>

namespace marquell::platform {
namespace {

// clang-format off
constexpr std::array<EncodingTraits, 10> encodings = {{
    {TextEncoding::utf8,              "UTF-8",       "UTF-8",       "",         false, false},
    {TextEncoding::utf16,             "UTF-16",      "UTF-16LE",    "\xFF\xFE", false, false},
    {TextEncoding::utf16BigEndian,    "UTF-16BE",    "UTF-16BE",    "",         false, false},
    {TextEncoding::utf16LittleEndian, "UTF-16LE",    "UTF-16LE",    "",         false, false},
    {TextEncoding::macOSRoman,        "macintosh",   "macintosh",   "",         true,  false},
    {TextEncoding::isoLatin1,         "ISO-8859-1",  "ISO-8859-1",  "",         true,  false},
    {TextEncoding::isoLatin2,         "ISO-8859-2",  "ISO-8859-2",  "",         true,  false},
    {TextEncoding::iso2022JP,         "ISO-2022-JP", "ISO-2022-JP", "",         true,  true},
    {TextEncoding::japaneseEUC,       "EUC-JP",      "EUC-JP",      "",         true,  true},
    {TextEncoding::shiftJIS,          "Shift_JIS",   "Shift_JIS",   "",         true,  true},
}};
// clang-format on

}  // namespace

const EncodingTraits& traitsOf(TextEncoding encoding) {
    return *std::find_if(encodings.begin(), encodings.end(),
                         [encoding](const auto& row) { return row.encoding == encoding; });
}

}  // namespace marquell::platform
