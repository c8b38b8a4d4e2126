// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/TextLine.h"

#include <QFontMetricsF>
#include <QStyle>
#include <cmath>

#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {

double baselineOffset(const QFontMetricsF& font) { return (font.ascent() - font.descent()) / 2; }

void drawTextLine(QPainter& painter, const QRectF& box, const QString& text,
                  Qt::Alignment alignment, Qt::TextElideMode elide) {
    const double baseline = box.center().y() + baselineOffset(QFontMetricsF(painter.font()));
    drawTextOnBaseline(painter, box, baseline, text, alignment, elide);
}

void drawTextOnBaseline(QPainter& painter, const QRectF& box, double baseline, const QString& text,
                        Qt::Alignment alignment, Qt::TextElideMode elide) {
    const QFontMetricsF font(painter.font());
    QString line = text;
    double width = font.horizontalAdvance(line);
    if (width > box.width()) {
        line = font.elidedText(text, elide, box.width());
        width = font.horizontalAdvance(line);
    }
    const Qt::Alignment visual = QStyle::visualAlignment(painter.layoutDirection(), alignment);
    double x = box.x();
    if (visual & Qt::AlignHCenter) x += (box.width() - width) / 2;
    if (visual & Qt::AlignRight) x += box.width() - width;
    painter.drawText(snapped(painter, QPointF(x, baseline)), line);
}

}  // namespace marquell::toolkit
