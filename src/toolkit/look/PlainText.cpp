// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/PlainText.h"

#include <QStringList>
#include <algorithm>

namespace marquell::toolkit {
namespace {

constexpr qsizetype longestUnbrokenLine = 60;  // characters

/// The text with places to break at in runs without blanks, as names of files can be.
QString withBreaks(const QString& text) {
    constexpr QChar zeroWidthSpace(0x200b);
    QString broken;
    qsizetype run = 0;
    for (const QChar each : text) {
        const bool isBlank = each == u' ' || each == u'\n';
        const bool goesWithTheLast = each.isLowSurrogate() || each.isMark();
        if (run >= longestUnbrokenLine && !isBlank && !goesWithTheLast) {
            broken += zeroWidthSpace;
            run = 0;
        }
        broken += each;
        run = isBlank ? 0 : run + 1;
    }
    return broken;
}

}  // namespace

QString titleText(const QString& text) {
    QString title = text;
    return title.replace(u'&', QStringLiteral("&&"));
}

QString textOfTitle(const QString& title) {
    QString text;
    text.reserve(title.size());
    for (qsizetype i = 0; i < title.size(); ++i) {
        // One "&" marks the character behind it, and may mark another "&".
        if (title[i] == u'&' && ++i == title.size()) break;
        text += title[i];
    }
    return text;
}

QString toolTipText(const QString& text) {
    if (text.isEmpty()) return {};
    const QStringList lines = text.split(u'\n');
    const bool isShort = std::ranges::all_of(
        lines, [](const QString& line) { return line.size() <= longestUnbrokenLine; });
    // What may wrap does, into a shape as balanced as Qt can make it, however little there is.
    const QString wrapping = isShort ? QStringLiteral("pre") : QStringLiteral("pre-wrap");
    return QStringLiteral("<qt><div style='white-space:%1'>%2</div></qt>")
        .arg(wrapping, withBreaks(text).toHtmlEscaped());
}

}  // namespace marquell::toolkit
