// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/VisibleText.h"

#include <algorithm>

namespace marquell::toolkit {
namespace {

struct CharacterRange {
    char32_t first, last;
};

constexpr char32_t lastOfBasicPlane = 0xffff;

// All of the basic plane, which visibleText relies on.
constexpr CharacterRange invisible[] = {
    {0x0000, 0x001f},  // controls
    {0x007f, 0x009f},  // delete and more controls
    {0x00ad, 0x00ad},  // soft hyphen
    {0x061c, 0x061c},  // Arabic letter mark
    {0x200b, 0x200b},  // zero-width space
    {0x200e, 0x200f},  // marks of direction
    {0x2028, 0x2029},  // separators of lines and paragraphs
    {0x202a, 0x202e},  // embeddings and overrides of direction
    {0x2066, 0x2069},  // isolates of direction
    {0xfeff, 0xfeff},  // byte order mark
};
static_assert(std::ranges::all_of(invisible, [](const CharacterRange& range) {
    return range.last <= lastOfBasicPlane;
}));

bool isInvisibleUnit(QChar unit) { return isInvisible(unit.unicode()); }

}  // namespace

bool isInvisible(char32_t character) {
    if (character >= 0x20 && character < 0x7f) return false;  // nearly always
    return std::ranges::any_of(invisible, [character](const CharacterRange& range) {
        return range.first <= character && character <= range.last;
    });
}

QString visibleMark(char32_t character) {
    // The letter in front keeps the digits, and with them the signs about them, out of writing from
    // right to left beside them. Every font has these; few have pictures of controls.
    return QStringLiteral("\u2039U+%1\u203a")
        .arg(QString::number(character, 16).toUpper(), 4, QLatin1Char('0'));
}

QString visibleText(const QString& text) {
    if (std::none_of(text.begin(), text.end(), isInvisibleUnit)) return text;
    QString shown;
    for (const QChar unit : text) {
        if (isInvisibleUnit(unit)) {
            shown += visibleMark(unit.unicode());
        } else {
            shown += unit;
        }
    }
    return shown;
}

}  // namespace marquell::toolkit
