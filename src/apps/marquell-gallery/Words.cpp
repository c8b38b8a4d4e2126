// SPDX-License-Identifier: GPL-3.0-or-later
#include "Words.h"

namespace marquell::gallery {
namespace {

bool& wordsAreLong() {
    static bool areLong = false;
    return areLong;
}

}  // namespace

void setLongWords(bool areLong) { wordsAreLong() = areLong; }

QString words(const char* english) {
    QString text = QString::fromUtf8(english);
    if (!wordsAreLong() || text.isEmpty()) return text;
    static constexpr QStringView plain = u"aceinorsuyACEINORSUY";
    static constexpr QStringView accented = u"àçéîñôřšûýÀÇÉÎÑÔŘŠÛÝ";
    const auto added = (text.size() * 2 + 4) / 5;
    for (QChar& letter : text) {
        const auto at = plain.indexOf(letter);
        if (at >= 0) letter = accented[at];
    }
    static const QString filling = QStringLiteral(" lörém ïpsüm dölör sït ämét");
    while (text.size() < QString::fromUtf8(english).size() + added) {
        text += filling.left(QString::fromUtf8(english).size() + added - text.size());
    }
    return text;
}

}  // namespace marquell::gallery
