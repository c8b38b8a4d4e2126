// SPDX-License-Identifier: GPL-3.0-or-later
// The icons of the two preview modes.
#include <QPainter>
#include <array>
#include <cmath>
#include <map>
#include <span>
#include <tuple>

#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {
namespace {

constexpr QRectF canvas(0, 0, 19, 19);
constexpr double cornerRadius = 1.5;

/// A line of one point at `y` below the top of the ink.
struct Line {
    double x = 0, y = 0, width = 0;
};

/// A framed sheet with lines on it, on the canvas. The header is a filled band at its top, the
/// column a line from there to its lower edge.
struct Sheet {
    QRectF ink;
    double header = 0;
    double column = 0;  // from the left of the ink; 0: none
    std::array<Line, 4> lines = {};
};

enum class Icon { table, tableMini, text, textMini };

const Sheet& sheetOf(Icon icon) {
    static constexpr std::array<Sheet, 4> sheets = {{
        {QRectF(1, 2, 17, 16), 4, 5, {{{1, 7, 15}, {1, 11, 15}}}},
        {QRectF(3, 4, 13, 12), 3, 4, {{{1, 5, 11}, {1, 8, 11}}}},
        {QRectF(3, 1, 13, 17), 0, 0, {{{3, 4, 7}, {3, 7, 7}, {3, 10, 7}, {3, 13, 4}}}},
        {QRectF(4, 3, 11, 14), 0, 0, {{{3, 3, 5}, {3, 5, 5}, {3, 7, 5}, {3, 9, 3}}}},
    }};
    return sheets.at(static_cast<std::size_t>(icon));
}

void draw(Icon icon, QPainter& painter, const QRectF& frame, const QColor& color,
          ResizingBehavior resizing) {
    const Sheet& sheet = sheetOf(icon);
    painter.save();
    fitCanvas(painter, resizing, canvas, frame);
    drawBox(painter, sheet.ink, cornerRadius, QColor(), color);
    painter.translate(sheet.ink.topLeft());
    const double thickness = hairline(painter);
    const auto at = [&](double x, double y) { return snapped(painter, QPointF(x, y)); };
    const auto fill = [&](const QPointF& from, const QPointF& to) {
        painter.fillRect(QRectF(from, to), color);
    };
    const QPointF edge(thickness, thickness);
    const QPointF end = at(sheet.ink.width(), sheet.ink.height()) - edge;
    const double header = at(0, sheet.header).y();
    if (sheet.header > 0) fill(at(0, 0) + edge, QPointF(end.x(), header));
    if (sheet.column > 0) {
        const double column = at(sheet.column, 0).x();
        fill(QPointF(column, header), QPointF(column + thickness, end.y()));
    }
    for (const Line& each : sheet.lines) {
        const QPointF to = at(each.x + each.width, each.y);
        if (each.width > 0) fill(at(each.x, each.y), to + QPointF(0, thickness));
    }
    painter.restore();
}

QPixmap imageOf(Icon icon, double devicePixelRatio, const QColor& color) {
    using Key = std::tuple<Icon, double, QRgb>;
    // Never destroyed: images must not outlive the application, which ends before statics do.
    static auto& cache = *new std::map<Key, QPixmap>;
    QPixmap& image = cache[Key(icon, devicePixelRatio, color.rgba())];
    if (image.isNull()) {
        const int side = static_cast<int>(std::lround(canvas.width() * devicePixelRatio));
        image = QPixmap(side, side);
        image.setDevicePixelRatio(devicePixelRatio);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        draw(icon, painter, canvas, color, ResizingBehavior::aspectFit);
    }
    return image;
}

}  // namespace

void MarquellStyleKit::drawTablePreviewIcon(QPainter& painter, const QRectF& frame,
                                            const QColor& color, ResizingBehavior resizing) {
    draw(Icon::table, painter, frame, color, resizing);
}

void MarquellStyleKit::drawTablePreviewIconMini(QPainter& painter, const QRectF& frame,
                                                const QColor& color, ResizingBehavior resizing) {
    draw(Icon::tableMini, painter, frame, color, resizing);
}

void MarquellStyleKit::drawTextOutputIcon(QPainter& painter, const QRectF& frame,
                                          const QColor& color, ResizingBehavior resizing) {
    draw(Icon::text, painter, frame, color, resizing);
}

void MarquellStyleKit::drawTextOutputIconMini(QPainter& painter, const QRectF& frame,
                                              const QColor& color, ResizingBehavior resizing) {
    draw(Icon::textMini, painter, frame, color, resizing);
}

void MarquellStyleKit::drawTablePreviewIconMini2(QPainter& painter, const QRectF& frame,
                                                 const QColor& color, ResizingBehavior resizing) {
    drawTablePreviewIconMini(painter, frame, color, resizing);
}

void MarquellStyleKit::drawTablePreviewIconMini3(QPainter& painter, const QRectF& frame,
                                                 const QColor& color, ResizingBehavior resizing) {
    drawTablePreviewIconMini(painter, frame, color, resizing);
}

void MarquellStyleKit::drawTextOutputIconMini2(QPainter& painter, const QRectF& frame,
                                               const QColor& color, ResizingBehavior resizing) {
    drawTextOutputIconMini(painter, frame, color, resizing);
}

void MarquellStyleKit::drawTextOutputIconMini3(QPainter& painter, const QRectF& frame,
                                               const QColor& color, ResizingBehavior resizing) {
    drawTextOutputIconMini(painter, frame, color, resizing);
}

QPixmap MarquellStyleKit::imageOfTablePreviewIcon(double devicePixelRatio, const QColor& color) {
    return imageOf(Icon::table, devicePixelRatio, color);
}

QPixmap MarquellStyleKit::imageOfTablePreviewIconMini(double devicePixelRatio,
                                                      const QColor& color) {
    return imageOf(Icon::tableMini, devicePixelRatio, color);
}

QPixmap MarquellStyleKit::imageOfTextOutputIcon(double devicePixelRatio, const QColor& color) {
    return imageOf(Icon::text, devicePixelRatio, color);
}

QPixmap MarquellStyleKit::imageOfTextOutputIconMini(double devicePixelRatio, const QColor& color) {
    return imageOf(Icon::textMini, devicePixelRatio, color);
}

QPixmap MarquellStyleKit::imageOfTablePreviewIconMini2() { return imageOfTablePreviewIconMini(2); }

QPixmap MarquellStyleKit::imageOfTablePreviewIconMini3() { return imageOfTablePreviewIconMini(3); }

QPixmap MarquellStyleKit::imageOfTextOutputIconMini2() { return imageOfTextOutputIconMini(2); }

QPixmap MarquellStyleKit::imageOfTextOutputIconMini3() { return imageOfTextOutputIconMini(3); }

}  // namespace marquell::toolkit
