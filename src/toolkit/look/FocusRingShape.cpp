// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/FocusRingShape.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

#include "toolkit/look/ButtonPainting.h"
#include "toolkit/look/ControlBox.h"

namespace marquell::toolkit {
namespace {

/// Check boxes: the ring keeps its distance from the box and the text.
FocusRingShape shapeAboutBoxAndText(const QRectF& rect) {
    const double gap = 2 * metrics().scale();
    const double height = 22 * metrics().scale();
    const double above = (rect.height() - height) / 2;
    return {FocusRingPlace::outside, rect.adjusted(-gap, above, gap, -above),
            5 * metrics().scale()};
}

QRectF titleRect(const QGroupBox& box) {
    QStyleOptionGroupBox option;
    option.initFrom(&box);
    option.text = box.title();
    option.subControls = QStyle::SC_GroupBoxCheckBox | QStyle::SC_GroupBoxLabel;
    const auto part = [&](QStyle::SubControl control) {
        return box.style()->subControlRect(QStyle::CC_GroupBox, &option, control, &box);
    };
    return part(QStyle::SC_GroupBoxCheckBox).united(part(QStyle::SC_GroupBoxLabel));
}

bool fillsAViewport(const QWidget& control) {
    const QWidget* parent = control.parentWidget();
    const auto* area = parent == nullptr
                           ? nullptr
                           : dynamic_cast<const QAbstractItemView*>(parent->parentWidget());
    return area != nullptr && area->viewport() == parent;
}

}  // namespace

double focusRingWidth() { return 2 * metrics().scale(); }

QRectF FocusRingShape::outerRect() const {
    if (place == FocusRingPlace::inside) return rect;
    const double gap = place == FocusRingPlace::outsideWithGap ? metrics().scale() : 0;
    const double out = focusRingWidth() + gap;
    return rect.adjusted(-out, -out, out, out);
}

double FocusRingShape::outerRadius() const {
    return radius == 0 ? 0 : radius + rect.x() - outerRect().x();
}

FocusRingShape focusRingShapeOf(const QWidget& control) {
    if (const auto* shaped = dynamic_cast<const FocusRingShaped*>(&control)) {
        return {shaped->focusRingPlace(), shaped->focusRingRect(), shaped->focusRingRadius()};
    }
    const QRectF rect = control.rect();
    // Editors in cells have no room about them; areas fill their pane.
    if (fillsAViewport(control) || dynamic_cast<const QAbstractScrollArea*>(&control) != nullptr) {
        return {FocusRingPlace::inside, rect, 0};
    }
    if (dynamic_cast<const QCheckBox*>(&control) != nullptr ||
        dynamic_cast<const QRadioButton*>(&control) != nullptr) {
        return shapeAboutBoxAndText(rect);
    }
    if (const auto* box = dynamic_cast<const QGroupBox*>(&control)) {
        return shapeAboutBoxAndText(titleRect(*box));
    }
    if (const auto* tabs = dynamic_cast<const QTabBar*>(&control)) {
        return {FocusRingPlace::inside, tabs->tabRect(tabs->currentIndex()), 0};
    }
    if (dynamic_cast<const QToolButton*>(&control) != nullptr) {
        return {FocusRingPlace::outside, rect, toolButtonRadius()};
    }
    const double radius = controlRadius(controlSizeOf(&control));
    const bool accent =
        shownButtonRole(&control) == ButtonRole::accent && surfaceOf(&control) != Surface::column;
    return {accent ? FocusRingPlace::outsideWithGap : FocusRingPlace::outside, rect, radius};
}

bool takesWriting(const QWidget& control) {
    // Lists take input methods too, as long as the current cell can be edited.
    return control.testAttribute(Qt::WA_InputMethodEnabled) &&
           dynamic_cast<const QAbstractItemView*>(&control) == nullptr;
}

}  // namespace marquell::toolkit
