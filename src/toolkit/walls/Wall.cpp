// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/walls/Wall.h"

#include <QDebug>
#include <QPainter>

#include "toolkit/look/Glyph.h"
#include "toolkit/walls/NiblessViewController.h"

namespace marquell::toolkit {

Wall::Wall(QWidget* parent) : QWidget(parent) {
    factory_.containerView = this;
    factory_.elementCreationTarget = this;
}

Wall::~Wall() = default;

void Wall::setBackgroundColor(std::optional<QColor> color) {
    backgroundColor_ = color;
    update();
}

void Wall::setBorderColor(const QColor& color) {
    borderColor_ = color;
    update();
}

void Wall::setBorders(bool top, bool bottom, bool left, bool right) {
    setDrawTopBorder(top);
    setDrawBottomBorder(bottom);
    setDrawLeftBorder(left);
    setDrawRightBorder(right);
}

void Wall::setDrawTopBorder(bool drawTopBorder) {
    drawTopBorder_ = drawTopBorder;
    update();
}

void Wall::setDrawBottomBorder(bool drawBottomBorder) {
    drawBottomBorder_ = drawBottomBorder;
    update();
}

void Wall::setDrawLeftBorder(bool drawLeftBorder) {
    drawLeftBorder_ = drawLeftBorder;
    update();
}

void Wall::setDrawRightBorder(bool drawRightBorder) {
    drawRightBorder_ = drawRightBorder;
    update();
}

void Wall::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    draw(painter);
}

void Wall::draw(QPainter& painter) {
    painter.save();
    const QRectF bounds = rect();
    if (drawingStack) {
        drawingStack->draw(painter, bounds);
    } else if (backgroundDrawingFunc) {
        backgroundDrawingFunc(painter, bounds);
    } else if (backgroundColor_) {
        painter.fillRect(bounds, *backgroundColor_);
    }
    painter.restore();
    drawBorders(painter);
}

void Wall::drawBorders(QPainter& painter) const {
    const QRectF frame = snapped(painter, QRectF(rect()));
    const double line = hairline(painter);
    const double top = frame.top() + (drawTopBorder_ ? line : 0);
    const double height = frame.bottom() - (drawBottomBorder_ ? line : 0) - top;
    const auto fill = [&](double x, double y, double w, double h) {
        painter.fillRect(QRectF(x, y, w, h), borderColor_);
    };
    if (drawRightBorder_) fill(frame.right() - line, top, line, height);
    if (drawLeftBorder_) fill(frame.left(), top, line, height);
    if (drawTopBorder_) fill(frame.left(), frame.top(), frame.width(), line);
    if (drawBottomBorder_) fill(frame.left(), frame.bottom() - line, frame.width(), line);
}

Wall* Wall::createCenteredWallInside() {
    auto* inner = new Wall;
    factory_.internalAddBrick(inner, [](LayoutConstraintMaker& make) {
        auto around = make.container();
        around.pin(LayoutAttribute::centerX, LayoutAttribute::centerX, 0)
            .pin(LayoutAttribute::centerY, LayoutAttribute::centerY, 0);
        for (const auto edge : {LayoutAttribute::left, LayoutAttribute::top}) {
            make.constraints.push_back(std::make_shared<LayoutConstraint>(
                make.subject, edge, Relation::greaterThanOrEqual, around.relation, edge, 1, 0));
        }
    });
    return inner;
}

void Wall::fillWallWith(NiblessViewController& viewController) {
    if (viewController.view() == nullptr) viewController.build();
    if (viewController.view() == nullptr) {
        qDebug("wall: the controller has built no view to fill the wall with");
        return;
    }
    factory_.internalAddBrick(viewController.view(),
                              [](LayoutConstraintMaker& make) { make.fillContainer(); });
}

std::pair<Wall*, Wall*> Wall::split(SplittingSize size, double factor, SplitDirection direction) {
    using enum LayoutAttribute;
    const bool sideBySide = direction == SplitDirection::horizontal;
    const auto length = sideBySide ? width : height;
    const auto near = sideBySide ? left : top;
    const auto far = sideBySide ? right : bottom;
    const auto fillAcross = [&](LayoutConstraintMakerWithRelation around) {
        for (const auto edge : {sideBySide ? top : left, sideBySide ? bottom : right}) {
            around.pin(edge, edge, 0);
        }
    };

    auto* first = new Wall;
    factory_.internalAddBrick(first, [&](LayoutConstraintMaker& make) {
        auto around = make.container();
        fillAcross(around);
        around.pin(near, near, 0);
        make.constraints.push_back(
            size == SplittingSize::absolute
                ? std::make_shared<LayoutConstraint>(first, length, Relation::equal, factor)
                : std::make_shared<LayoutConstraint>(first, length, Relation::equal,
                                                     around.relation, length, factor, 0));
    });
    auto* second = new Wall;
    factory_.internalAddBrick(second, [&](LayoutConstraintMaker& make) {
        auto around = make.container();
        fillAcross(around);
        around.pin(far, far, 0);
        make.andView(first).pin(near, far, 0);
    });
    return {first, second};
}

}  // namespace marquell::toolkit
