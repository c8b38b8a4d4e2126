// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/PdfText.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "helpers/common/DecodedText.h"
#include "platform/Utf8.h"

namespace marquell::helpers {
namespace {

/// 0x80 to 0x9F of PDFDocEncoding, which is ISO Latin 1 but for these and some accents of their
/// own. It has the euro sign for the no-break space, which texts in UTF-16 have more often.
constexpr std::array<char16_t, 32> documentHigh = {
    u'\u2022', u'\u2020', u'\u2021', u'\u2026', u'\u2014', u'\u2013', u'\u0192', u'\u2044',
    u'\u2039', u'\u203A', u'\u2212', u'\u2030', u'\u201E', u'\u201C', u'\u201D', u'\u2018',
    u'\u2019', u'\u201A', u'\u2122', u'\uFB01', u'\uFB02', u'\u0141', u'\u0152', u'\u0160',
    u'\u0178', u'\u017D', u'\u0131', u'\u0142', u'\u0153', u'\u0161', u'\u017E', 0,
};

char16_t decoded(char16_t character) {
    return character >= 0x80 && character < 0xA0 ? documentHigh[character - 0x80U] : character;
}

}  // namespace

std::string pdfBytes(const poppler::ustring& text) {
    std::string bytes;
    for (const unsigned short character : text) {
        if (character > 0xFF) return {};
        bytes.push_back(static_cast<char>(character));
    }
    return bytes;
}

std::string pdfText(const poppler::ustring& text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::string bytes = pdfBytes(text);
    if (!bytes.empty() && platform::isValidUtf8(bytes)) {
        const bool isMarked = bytes.starts_with(byteOrderMark);
        return decodedText(std::string_view(bytes).substr(isMarked ? byteOrderMark.size() : 0),
                           Charset::likely);
    }
    std::string units;
    for (const char16_t character : text) {
        const char16_t unit = bytes.empty() ? character : decoded(character);
        units.push_back(static_cast<char>(unit & 0xFF));
        units.push_back(static_cast<char>(unit >> 8));
    }
    return decodedText(units, Charset::utf16LittleEndian);
}

}  // namespace marquell::helpers
