// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/TwoPartText.h"

#include <algorithm>
#include <cmath>

#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

/// Between the parts, in px.
int gap() { return metrics().px(5); }

double subtitleWidth(const TwoPartText& text, const TwoPartFonts& fonts) {
    if (text.subtitle.isEmpty()) return 0;
    return gap() + QFontMetricsF(fonts.subtitle).horizontalAdvance(text.subtitle);
}

}  // namespace

QString TwoPartText::whole() const {
    return subtitle.isEmpty() ? choice : choice + u' ' + subtitle;
}

TwoPartFonts::TwoPartFonts(ControlSize size)
    : choice(metrics().font(fontRoleOf(size))),
      subtitle(metrics().font(size == ControlSize::regular ? FontRole::small : FontRole::mini)) {}

double widthOf(const TwoPartText& text, const TwoPartFonts& fonts) {
    const double choice = QFontMetricsF(fonts.choice).horizontalAdvance(text.choice);
    return std::ceil(choice + subtitleWidth(text, fonts));
}

void drawTwoPartText(QPainter& painter, const QRectF& box, const TwoPartText& text,
                     const TwoPartFonts& fonts, const TwoPartColors& colors) {
    const double subtitle = subtitleWidth(text, fonts);
    const double choice = QFontMetricsF(fonts.choice).horizontalAdvance(text.choice);
    const double choiceRoom = std::max(0.0, std::min(choice + 1, box.width() - subtitle));
    const double baseline = box.center().y() + baselineOffset(QFontMetricsF(fonts.choice));
    const bool isMirrored = painter.layoutDirection() == Qt::RightToLeft;
    QRectF part = box;
    part.setWidth(choiceRoom);
    if (isMirrored) part.moveRight(box.right());
    painter.setFont(fonts.choice);
    painter.setPen(colors.choice);
    drawTextOnBaseline(painter, part, baseline, text.choice);
    if (text.subtitle.isEmpty()) return;
    // Behind the choice as it is drawn, which may have been cut to less than its room.
    const QString drawn =
        QFontMetricsF(fonts.choice).elidedText(text.choice, Qt::ElideRight, choiceRoom);
    const double behind = QFontMetricsF(fonts.choice).horizontalAdvance(drawn) + gap();
    QRectF rest = box;
    isMirrored ? rest.setRight(box.right() - behind) : rest.setLeft(box.left() + behind);
    painter.setFont(fonts.subtitle);
    painter.setPen(colors.subtitle);
    drawTextOnBaseline(painter, rest, baseline, text.subtitle);
}

}  // namespace marquell::toolkit
