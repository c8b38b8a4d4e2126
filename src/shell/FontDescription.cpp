// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FontDescription.h"

#include <QLatin1String>
#include <QStringList>
#include <array>

namespace marquell::shell {
namespace {

constexpr double smallestSize = 1;
constexpr double largestSize = 200;

enum class Trait { none, weight, style, stretch, capitals };

struct Word {
    QLatin1String text;  // without hyphens, in small letters
    Trait trait = Trait::none;
    int value = 0;
};

constexpr std::array words = {
    Word{QLatin1String("normal"), Trait::none, 0},
    Word{QLatin1String("roman"), Trait::style, QFont::StyleNormal},
    Word{QLatin1String("oblique"), Trait::style, QFont::StyleOblique},
    Word{QLatin1String("italic"), Trait::style, QFont::StyleItalic},
    Word{QLatin1String("smallcaps"), Trait::capitals, QFont::SmallCaps},
    Word{QLatin1String("thin"), Trait::weight, QFont::Thin},
    Word{QLatin1String("ultralight"), Trait::weight, QFont::ExtraLight},
    Word{QLatin1String("extralight"), Trait::weight, QFont::ExtraLight},
    Word{QLatin1String("light"), Trait::weight, QFont::Light},
    Word{QLatin1String("semilight"), Trait::weight, 350},
    Word{QLatin1String("demilight"), Trait::weight, 350},
    Word{QLatin1String("book"), Trait::weight, 380},
    Word{QLatin1String("regular"), Trait::weight, QFont::Normal},
    Word{QLatin1String("medium"), Trait::weight, QFont::Medium},
    Word{QLatin1String("semibold"), Trait::weight, QFont::DemiBold},
    Word{QLatin1String("demibold"), Trait::weight, QFont::DemiBold},
    Word{QLatin1String("bold"), Trait::weight, QFont::Bold},
    Word{QLatin1String("ultrabold"), Trait::weight, QFont::ExtraBold},
    Word{QLatin1String("extrabold"), Trait::weight, QFont::ExtraBold},
    Word{QLatin1String("heavy"), Trait::weight, QFont::Black},
    Word{QLatin1String("black"), Trait::weight, QFont::Black},
    Word{QLatin1String("ultraheavy"), Trait::weight, 1000},
    Word{QLatin1String("extraheavy"), Trait::weight, 1000},
    Word{QLatin1String("ultrablack"), Trait::weight, 1000},
    Word{QLatin1String("extrablack"), Trait::weight, 1000},
    Word{QLatin1String("ultracondensed"), Trait::stretch, QFont::UltraCondensed},
    Word{QLatin1String("extracondensed"), Trait::stretch, QFont::ExtraCondensed},
    Word{QLatin1String("condensed"), Trait::stretch, QFont::Condensed},
    Word{QLatin1String("semicondensed"), Trait::stretch, QFont::SemiCondensed},
    Word{QLatin1String("semiexpanded"), Trait::stretch, QFont::SemiExpanded},
    Word{QLatin1String("expanded"), Trait::stretch, QFont::Expanded},
    Word{QLatin1String("extraexpanded"), Trait::stretch, QFont::ExtraExpanded},
    Word{QLatin1String("ultraexpanded"), Trait::stretch, QFont::UltraExpanded},
};

/// Gives the font what the word stands for; false if it is no such word.
bool apply(QString text, QFont& font) {
    text = text.toLower().remove(QLatin1Char('-'));
    for (const Word& word : words) {
        if (text != word.text) continue;
        switch (word.trait) {
            case Trait::none:
                break;
            case Trait::weight:
                font.setWeight(static_cast<QFont::Weight>(word.value));
                break;
            case Trait::style:
                font.setStyle(static_cast<QFont::Style>(word.value));
                break;
            case Trait::stretch:
                font.setStretch(word.value);
                break;
            case Trait::capitals:
                font.setCapitalization(QFont::SmallCaps);
                break;
        }
        return true;
    }
    return false;
}

/// Settings for variable fonts and for features, which may stand behind the size.
bool isRefinement(const QString& word) {
    return word.startsWith(QLatin1Char('@')) || word.startsWith(QLatin1Char('#'));
}

QStringList families(const QString& text) {
    QStringList result;
    for (const QString& family : text.split(QLatin1Char(','))) {
        if (!family.trimmed().isEmpty()) result << family.trimmed();
    }
    return result;
}

}  // namespace

std::optional<QFont> fontFromDescription(const QString& description) {
    const QString spaced = QString(description).replace(QLatin1Char(','), QStringLiteral(", "));
    QStringList rest = spaced.simplified().split(QLatin1Char(' '));
    while (!rest.isEmpty() && isRefinement(rest.constLast())) rest.removeLast();
    if (rest.isEmpty()) return std::nullopt;
    const double size = rest.takeLast().toDouble();  // 0 if it is no number
    if (!(size >= smallestSize && size <= largestSize)) return std::nullopt;

    QFont font;
    while (!rest.isEmpty() && apply(rest.constLast(), font)) rest.removeLast();
    const QStringList names = families(rest.join(QLatin1Char(' ')));
    if (names.isEmpty()) return std::nullopt;
    font.setFamilies(names);
    font.setPointSizeF(size);
    return font;
}

}  // namespace marquell::shell
