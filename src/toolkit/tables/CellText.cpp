// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellText.h"

#include <QCache>
#include <QFontMetricsF>
#include <algorithm>
#include <utility>

#include "toolkit/bricks/TwoPartText.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/TextLine.h"
#include "toolkit/look/VisibleText.h"

namespace marquell::toolkit {
namespace {

constexpr qsizetype longestTold = 2000;  // characters
constexpr qsizetype longestLabel = 500;

/// How many characters are looked at for a place of `room` px. Shaping takes a time that grows with
/// the text, however little of it is shown; no writing is narrower than a px for each on average.
qsizetype longestShown(double room) {
    return std::clamp<qsizetype>(static_cast<qsizetype>(room), 32, longestLabel);
}

/// At most `length` characters of the text, with an ellipsis where the rest was.
QString shortened(const QString& text, qsizetype length, Qt::TextElideMode mode) {
    if (text.size() <= length) return text;
    const QChar ellipsis(0x2026);
    qsizetype head = mode == Qt::ElideMiddle ? length / 2 : length;
    qsizetype tail = length - head;
    if (text.at(head - 1).isHighSurrogate()) --head;
    if (tail > 0 && text.at(text.size() - tail).isLowSurrogate()) --tail;
    return text.first(head) + ellipsis + text.last(tail);
}

TwoPartText shownText(const CellLabel& label, double room) {
    const qsizetype longest = longestShown(room);
    return {visibleText(shortened(label.text, longest, label.elideMode)),
            visibleText(shortened(label.abbreviation, longest, Qt::ElideRight))};
}

TwoPartFonts cellFonts() {
    TwoPartFonts fonts(ControlSize::small);
    fonts.subtitle = metrics().font(FontRole::abbreviation);
    return fonts;
}

/// The text as it fits into `room` px. Kept for the next painting, as measuring and cutting takes
/// most of the time of one.
QString fitted(const QString& text, const QFont& font, int room, Qt::TextElideMode mode) {
    using Key = std::pair<QString, std::pair<int, int>>;
    static QCache<Key, QString> kept(4096);
    static QFont keptFont;
    if (keptFont != font) {
        kept.clear();
        keptFont = font;
    }
    const Key key(text, {room, mode});
    const QString* found = kept.object(key);
    if (found != nullptr) return *found;
    const QFontMetricsF measure(font);
    const bool fits = measure.horizontalAdvance(text) <= room;
    QString cut = fits ? text : measure.elidedText(text, mode, room);
    kept.insert(key, new QString(cut));
    return cut;
}

}  // namespace

void drawCellLabel(QPainter& painter, const QRectF& box, const CellLabel& label,
                   const QWidget* view) {
    const TwoPartText text = shownText(label, box.width());
    const TwoPartFonts fonts = cellFonts();
    const QColor textColor = color(label.textRole, view);
    if (!text.subtitle.isEmpty()) {
        drawTwoPartText(painter, box, text, fonts,
                        {textColor, color(label.abbreviationRole, view)});
        return;
    }
    painter.setFont(fonts.choice);
    painter.setPen(textColor);
    const int room = static_cast<int>(box.width());
    drawTextLine(painter, box, fitted(text.choice, fonts.choice, room, label.elideMode));
}

QString headerText(const QString& title) {
    return visibleText(shortened(title, longestLabel, Qt::ElideRight));
}

double naturalWidth(const CellLabel& label) {
    return widthOf(shownText(label, longestLabel), cellFonts());
}

QString toolTipOf(const TableCellView& cell, double room) {
    const CellLabel& label = cell.nameLabel;
    QString text = cell.toolTip;
    if (text.isEmpty()) {
        const bool isCut = label.text.size() > longestShown(room) ||
                           widthOf(shownText(label, room), cellFonts()) > room;
        if (!isCut) return {};
        text = label.text;
    }
    return toolTipText(visibleText(shortened(text, longestTold, label.elideMode)));
}

QString spokenText(const TableCellView& cell) {
    const CellLabel& label = cell.nameLabel;
    return TwoPartText{label.text, label.abbreviation}.whole();
}

}  // namespace marquell::toolkit
