// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextAdvances.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "toolkit/look/VisibleText.h"
#include "window/preview/DecodedText.h"

namespace marquell::window {
namespace {

constexpr char32_t endOfKnownPlanes = 0x30000;  // beyond there is hardly anything

double pitchOf(const QFontMetricsF& font) {
    const double pitch = font.horizontalAdvance(QLatin1Char(' '));
    for (char each = ' '; each < 0x7f; ++each) {
        if (font.horizontalAdvance(QLatin1Char(each)) != pitch) return 0;
    }
    return pitch;
}

constexpr std::uint64_t everyByte(unsigned char byte) { return byte * 0x0101010101010101ULL; }

/// Whether the next eight bytes are printable ASCII characters.
bool isPlain(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    const std::uint64_t outside = word | (word - everyByte(0x20)) | (word + everyByte(0x01));
    return (outside & everyByte(0x80)) == 0;
}

bool isPlain(char byte) { return byte >= 0x20 && byte < 0x7f; }

}  // namespace

TextAdvances::TextAdvances(const QFont& font, double tabDistance)
    : font_(font),
      tabDistance_(tabDistance),
      leastTab_(font_.horizontalAdvance(QLatin1Char(' ')) / 2),
      pitch_(pitchOf(font_)) {}

double TextAdvances::widthOf(std::string_view text) const {
    double x = 0;
    std::size_t plain = 0;  // characters behind x
    for (std::size_t at = 0; at < text.size();) {
        if (pitch_ > 0 && at + 8 <= text.size() && isPlain(text.data() + at)) {
            plain += 8;
            at += 8;
        } else if (pitch_ > 0 && isPlain(text[at])) {
            ++plain;
            ++at;
        } else {
            x += static_cast<double>(std::exchange(plain, 0)) * pitch_;
            const auto [character, length] = firstOf(text.substr(at));
            x = character == U'\t' ? behindTab(x) : x + advanceOf(character);
            at += length;
        }
    }
    return x + static_cast<double>(plain) * pitch_;
}

bool TextAdvances::isExactFor(std::string_view text) const {
    bool isExact = pitch_ > 0;
    forEachCodePoint(text, [&isExact](char32_t character, std::size_t, std::size_t) {
        isExact = isExact && (character < 0x80 || toolkit::isInvisible(character));
    });
    return isExact;
}

double TextAdvances::behindTab(double x) const {
    return (std::floor((x + leastTab_) / tabDistance_) + 1) * tabDistance_;
}

double TextAdvances::advanceOf(char32_t character) const {
    if (advances_.empty()) advances_.resize(endOfKnownPlanes, -1);
    if (character >= endOfKnownPlanes) character = 0xfffd;
    float& advance = advances_[character];
    if (advance < 0) advance = static_cast<float>(measuredAdvanceOf(character));
    return advance;
}

double TextAdvances::measuredAdvanceOf(char32_t character) const {
    if (toolkit::isInvisible(character)) {
        return font_.horizontalAdvance(toolkit::visibleMark(character));
    }
    return QChar::isMark(character) ? 0 : font_.horizontalAdvance(QString::fromUcs4(&character, 1));
}

}  // namespace marquell::window
