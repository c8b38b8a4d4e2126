// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/QuickTimeText.h"

#include <array>

#include "helpers/common/DecodedText.h"
#include "platform/Utf8.h"

namespace marquell::helpers {
namespace {

/// Smaller codes number the languages of the classic Macintosh.
constexpr std::uint64_t firstPackedCode = 0x400;
constexpr std::uint64_t unspecified = 0x7FFF;

/// 0x80 to 0xFF of Mac Roman.
constexpr std::array<char32_t, 128> macRomanHigh = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3,
    0x00E5, 0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3,
    0x00F2, 0x00F4, 0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3,
    0x00A7, 0x2022, 0x00B6, 0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8,
    0x221E, 0x00B1, 0x2264, 0x2265, 0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA,
    0x00BA, 0x03A9, 0x00E6, 0x00F8, 0x00BF, 0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB,
    0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5, 0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D,
    0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044, 0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02,
    0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1, 0x00CB, 0x00C8, 0x00CD, 0x00CE,
    0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9, 0x0131, 0x02C6, 0x02DC,
    0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};

constexpr std::array<std::string_view, 41> macLanguages = {
    "eng", "fra", "deu", "ita", "nld", "swe", "spa", "dan", "por", "nor", "heb",
    "jpn", "ara", "fin", "ell", "isl", "mlt", "tur", "hrv", "zho", "urd", "hin",
    "tha", "kor", "lit", "pol", "hun", "est", "lav", "sme", "fao", "fas", "rus",
    "zho", "nld", "gle", "sqi", "ron", "ces", "slk", "slv",
};

std::string macRomanText(std::string_view bytes) {
    std::string text;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        text += platform::utf8Text(byte < 0x80 ? byte : macRomanHigh[byte - 0x80U]);
    }
    return text;
}

}  // namespace

std::string quickTimeText(std::string_view bytes, std::uint64_t languageCode) {
    if (bytes.starts_with("\xFE\xFF")) return decodedText(bytes, Charset::utf16BigEndian);
    if (bytes.starts_with("\xFF\xFE")) return decodedText(bytes, Charset::utf16LittleEndian);
    const bool isMac = languageCode < firstPackedCode || languageCode == unspecified;
    if (!isMac || platform::isValidUtf8(bytes)) return decodedText(bytes, Charset::likely);
    return decodedText(macRomanText(bytes), Charset::likely);
}

std::string quickTimeLanguage(std::uint64_t code) {
    if (code < macLanguages.size()) return std::string(macLanguages[code]);
    if (code < firstPackedCode || code >= unspecified) return {};
    // Three letters of 5 bits each.
    std::string language;
    for (unsigned shift = 15; shift > 0; shift -= 5) {
        const std::uint64_t letter = code >> (shift - 5) & 0x1FU;
        if (letter < 1 || letter > 26) return {};
        language += static_cast<char>('a' + letter - 1);
    }
    return language == "und" ? std::string() : language;
}

}  // namespace marquell::helpers
