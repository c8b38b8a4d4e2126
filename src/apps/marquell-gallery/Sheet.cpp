// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sheet.h"

#include <QEvent>
#include <QPainter>
#include <utility>

#include "toolkit/look/Metrics.h"

namespace marquell::gallery {

using namespace toolkit;
using enum LayoutAttribute;

void Sheet::place(QWidget* view, double x, double y, std::optional<double> width,
                  std::optional<double> height) {
    wall_.factory().internalAddBrick(view, [&](LayoutConstraintMaker& make) {
        make.container().pin(left, left, x).pin(top, top, y);
        if (width) make.width(*width);
        if (height) make.height(*height);
    });
}

Label* Sheet::title(const QString& text, double x, double y) {
    Label* label = put(standardLabel(text), x, y);
    setFontRole(label, FontRole::title);
    return label;
}

Label* Sheet::caption(const QString& text, double x, double y, std::optional<double> width) {
    Label* label = put(standardLabel(text), x, y, width);
    label->small();
    // Grey text is for fields on the column, not for its blue ground.
    const bool isColumn = surfaceOf(&wall_) == Surface::column;
    label->setColorRole(isColumn ? ColorRole::text : ColorRole::secondaryText);
    if (width) label->setAlignment(Qt::AlignCenter);
    return label;
}

void Sheet::end(double width, double height) {
    auto* corner = new QWidget;
    wall_.factory().internalAddBrick(corner, [&](LayoutConstraintMaker& make) {
        make.width(0).height(0);
        make.container().pin(left, left, width).pin(top, top, height);
    });
    const auto keepsRoom = [&](LayoutAttribute edge) {
        return std::make_shared<LayoutConstraint>(&wall_, edge, Relation::greaterThanOrEqual,
                                                  corner, edge, 1.0, 0.0);
    };
    addConstraints(&wall_, {keepsRoom(right), keepsRoom(bottom)});
}

void fillWith(Wall* wall, ColorRole role) {
    wall->backgroundDrawingFunc = [wall, role](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, color(role, wall));
    };
}

RoleWall::RoleWall(std::optional<ColorRole> ground, std::optional<ColorRole> border)
    : ground_(ground), border_(border) {
    setBorders(border.has_value(), border.has_value(), border.has_value(), border.has_value());
    takeColors();
}

void RoleWall::changeEvent(QEvent* event) {
    Wall::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::ParentChange) takeColors();
}

void RoleWall::takeColors() {
    if (ground_) setBackgroundColor(color(*ground_, this));
    if (border_) setBorderColor(color(*border_, this));
}

Picture::Picture(Draw draw, QWidget* parent) : QWidget(parent), draw_(std::move(draw)) {}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    draw_(painter, QRectF(rect()));
}

}  // namespace marquell::gallery
