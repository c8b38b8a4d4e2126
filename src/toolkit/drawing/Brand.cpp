// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/Brand.h"

#include <QPainter>
#include <QSvgRenderer>

#include "toolkit/drawing/ResizingBehavior.h"
#include "toolkit/drawing/VectorIcon.h"
#include "toolkit/look/Metrics.h"

// In a library that is linked statically nothing else would take the pictures along. Has to stand
// outside any namespace.
static void takePicturesAlong() { Q_INIT_RESOURCE(brand); }

namespace marquell::toolkit {
namespace {

struct Pictures {
    Pictures() {
        takePicturesAlong();
        logo.load(QStringLiteral(":/brand/logo.svg"));
        icon.load(QStringLiteral(":/brand/icon.svg"));
    }

    QSvgRenderer logo;
    QSvgRenderer icon;
};

Pictures& pictures() {
    static Pictures pictures;
    return pictures;
}

void drawPicture(QPainter& painter, QSvgRenderer& picture, const QRectF& frame) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter, apply(ResizingBehavior::aspectFit, picture.viewBoxF(), frame));
    painter.restore();
}

}  // namespace

void drawLogo(QPainter& painter, const QRectF& frame) {
    drawPicture(painter, pictures().logo, frame);
}

QRectF logoFrame(const QRectF& parameterWallFrame) {
    const Metrics& measure = metrics();
    return {parameterWallFrame.topLeft() + QPointF(measure.px(118), measure.px(8)),
            QSizeF(measure.px(164), measure.px(22))};
}

QIcon applicationIcon() {
    return vectorIcon([](QPainter& painter, const QRectF& frame) {
        drawPicture(painter, pictures().icon, frame);
    });
}

}  // namespace marquell::toolkit
