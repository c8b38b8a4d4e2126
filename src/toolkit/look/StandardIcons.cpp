// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/StandardIcons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <vector>

#include "toolkit/look/ColorRole.h"

namespace marquell::toolkit {
namespace {

constexpr double side = 16;  // of the square that icons are drawn in
constexpr double lineWidth = 1.25;

/// An icon as lines through points.
struct IconLines {
    QStyle::StandardPixmap standard;
    std::vector<QPolygonF> lines;
    bool hasDirection;
};

QPolygonF square(double x, double y) { return QPolygonF(QRectF(x, y, 4, 4)); }

QPolygonF line(double x1, double y1, double x2, double y2) {
    return QPolygonF({QPointF(x1, y1), QPointF(x2, y2)});
}

const IconLines* linesOf(QStyle::StandardPixmap standard) {
    static const std::vector<IconLines> all = {
        {QStyle::SP_ArrowBack, {QPolygonF({{10, 3.5}, {5.5, 8}, {10, 12.5}})}, true},
        {QStyle::SP_ArrowForward, {QPolygonF({{6, 3.5}, {10.5, 8}, {6, 12.5}})}, true},
        {QStyle::SP_FileDialogToParent,
         {QPolygonF({{4, 7.5}, {8, 3.5}, {12, 7.5}}), line(8, 4, 8, 13)},
         false},
        {QStyle::SP_FileDialogNewFolder,
         {QPolygonF({{2, 13}, {2, 3.5}, {6, 3.5}, {7.5, 5.5}, {14, 5.5}, {14, 13}, {2, 13}}),
          line(8, 7, 8, 11.5), line(5.75, 9.25, 10.25, 9.25)},
         false},
        {QStyle::SP_FileDialogListView,
         {square(3, 3), square(9, 3), square(3, 9), square(9, 9)},
         false},
        {QStyle::SP_FileDialogDetailedView,
         {line(3, 4, 13, 4), line(3, 8, 13, 8), line(3, 12, 13, 12)},
         false},
        {QStyle::SP_MessageBoxWarning,
         {QPolygonF({{8, 2}, {14.75, 14}, {1.25, 14}, {8, 2}}), line(8, 6.25, 8, 9.75),
          line(8, 11.75, 8, 11.8)},
         false},
    };
    const auto found = std::ranges::find(all, standard, &IconLines::standard);
    return found == all.end() ? nullptr : &*found;
}

class LinesEngine final : public QIconEngine {
public:
    LinesEngine(const IconLines& icon, bool isMirrored) : icon_(icon), isMirrored_(isMirrored) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const bool isDisabled = mode == QIcon::Disabled;
        const ColorRole role = isDisabled ? ColorRole::disabledText : ColorRole::text;
        const double scale = std::min(rect.width(), rect.height()) / side;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(color(role, systemSurface()), lineWidth, Qt::SolidLine, Qt::RoundCap,
                             Qt::RoundJoin));
        painter->translate(QRectF(rect).center());
        painter->scale(isMirrored_ ? -scale : scale, scale);
        painter->translate(-side / 2, -side / 2);
        for (const QPolygonF& each : icon_.lines) painter->drawPolyline(each);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }

    QIconEngine* clone() const override { return new LinesEngine(*this); }

private:
    const IconLines& icon_;
    const bool isMirrored_;
};

}  // namespace

std::optional<QIcon> standardIconFor(QStyle::StandardPixmap standard,
                                     Qt::LayoutDirection direction) {
    const IconLines* lines = linesOf(standard);
    if (lines == nullptr) return std::nullopt;
    return QIcon(new LinesEngine(*lines, lines->hasDirection && direction == Qt::RightToLeft));
}

}  // namespace marquell::toolkit
