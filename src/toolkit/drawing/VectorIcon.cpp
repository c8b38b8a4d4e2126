// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/drawing/VectorIcon.h"

#include <QIconEngine>
#include <utility>

namespace marquell::toolkit {
namespace {

using Drawing = std::function<void(QPainter& painter, const QRectF& frame)>;

class VectorIconEngine : public QIconEngine {
public:
    explicit VectorIconEngine(Drawing drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override {
        drawing_(*painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing_(painter, QRectF(QPointF(), size));
        return image;
    }

    QIconEngine* clone() const override { return new VectorIconEngine(drawing_); }

private:
    const Drawing drawing_;
};

}  // namespace

QIcon vectorIcon(Drawing draw) { return QIcon(new VectorIconEngine(std::move(draw))); }

}  // namespace marquell::toolkit
