// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/DragPicture.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double padding = 6;
constexpr double besidePointer = 12;

void drawCount(QPainter& painter, const QRect& bounds, const QPoint& pointer, int count,
               const QWidget& view) {
    const QString text = QLocale().toString(count);
    const QFont& font = metrics().font(FontRole::header);
    const double height = metrics().controlHeight(ControlSize::mini);
    const double width = std::max(
        height, std::ceil(QFontMetricsF(font).horizontalAdvance(text)) + 2 * metrics().px(padding));
    const double largestX = std::max(bounds.right() + 1 - width, double(bounds.left()));
    const double largestY = std::max(bounds.bottom() + 1 - height, double(bounds.top()));
    const QRectF box(
        std::clamp<double>(pointer.x() + metrics().px(besidePointer), bounds.left(), largestX),
        std::clamp<double>(pointer.y() - height / 2, bounds.top(), largestY), width, height);
    painter.setRenderHint(QPainter::Antialiasing);
    // On the accent's own colour, which selected rows have, it needs an edge.
    painter.setPen(QPen(color(ColorRole::accentText, &view), metrics().px(1)));
    painter.setBrush(color(ColorRole::accentFill, &view));
    const double edge = metrics().px(1) / 2.0;
    painter.drawRoundedRect(box.adjusted(edge, edge, -edge, -edge), height / 2, height / 2);
    painter.setFont(font);
    painter.setPen(color(ColorRole::accentText, &view));
    drawTextLine(painter, box, text, Qt::AlignHCenter);
}

}  // namespace

QPixmap dragPicture(QWidget& viewport, const QRegion& rows, const QPoint& pointer, int count) {
    const QRect bounds = rows.boundingRect();
    QPixmap picture(bounds.size() * viewport.devicePixelRatio());
    picture.setDevicePixelRatio(viewport.devicePixelRatio());
    picture.fill(Qt::transparent);
    viewport.render(&picture, QPoint(), rows, QWidget::DrawWindowBackground);
    if (count > 1 && !picture.isNull()) {
        QPainter painter(&picture);
        painter.translate(-bounds.topLeft());
        drawCount(painter, bounds, pointer, count, viewport);
    }
    return picture;
}

}  // namespace marquell::toolkit
