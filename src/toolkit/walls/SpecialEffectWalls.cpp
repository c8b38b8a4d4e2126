// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/walls/SpecialEffectWalls.h"

#include <QEvent>
#include <QPainter>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Surface.h"

namespace marquell::toolkit {
namespace {

class EffectView : public QWidget {
public:
    EffectView() { setAppearance(this, Appearance::dark); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto ground =
            isActiveWindow() ? ColorRole::effectGround : ColorRole::effectGroundInactive;
        QPainter(this).fillRect(rect(), color(ground, this));
    }

    bool event(QEvent* event) override {
        const auto type = event->type();
        if (type == QEvent::WindowActivate || type == QEvent::WindowDeactivate) update();
        return QWidget::event(event);
    }
};

/// Has the view fill the wall and take the bricks that are made from now on.
QWidget* placeEffectView(Wall& wall, QWidget* view) {
    addSubview(&wall, view);
    LayoutConstraintMaker make(view);
    make.fillContainer();
    addConstraints(&wall, make.constraints);
    wall.factory().elementCreationTarget = view;
    return view;
}

}  // namespace

WallWithSpecialEffectsView::WallWithSpecialEffectsView(QWidget* parent)
    : Wall(parent), effectView_(placeEffectView(*this, new EffectView)) {}

WallWithUnconfiguredSpecialEffectsView::WallWithUnconfiguredSpecialEffectsView(QWidget* parent)
    : Wall(parent), effectView_(placeEffectView(*this, new QWidget)) {}

}  // namespace marquell::toolkit
