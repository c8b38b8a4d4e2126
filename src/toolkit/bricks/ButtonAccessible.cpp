// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ButtonAccessible.h"

#include <QCheckBox>
#include <QMenu>

#include "toolkit/bricks/ColorWellBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {

ButtonAccessible::ButtonAccessible(QAbstractButton& button, QAccessible::Role role)
    : QAccessibleWidget(&button, role), button_(button) {}

QString ButtonAccessible::name() const {
    QString name = QAccessibleWidget::text(QAccessible::Name);
    if (name.isEmpty()) name = textOfTitle(button_.text());
    return name.isEmpty() ? button_.accessibleDescription() : name;
}

QString ButtonAccessible::text(QAccessible::Text part) const {
    if (part == QAccessible::Name) return name();
    if (part == QAccessible::Value) {
        const auto* well = dynamic_cast<const ColorWellBrick*>(&button_);
        if (well != nullptr) return well->color().name();
    }
    const QString text = QAccessibleWidget::text(part);
    return part == QAccessible::Description && text == name() ? QString() : text;
}

QAccessible::State ButtonAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button_.isCheckable();
    state.checked = button_.isChecked();
    const auto* box = qobject_cast<const QCheckBox*>(&button_);
    state.checkStateMixed = box != nullptr && box->checkState() == Qt::PartiallyChecked;
    state.pressed = button_.isDown();
    return state;
}

QStringList ButtonAccessible::actionNames() const {
    return QStringList(mainAction()) + QAccessibleWidget::actionNames();
}

void ButtonAccessible::doAction(const QString& actionName) {
    if (actionName == mainAction()) {
        doMainAction();
    } else {
        QAccessibleWidget::doAction(actionName);
    }
}

QString ButtonAccessible::mainAction() const {
    return button_.isCheckable() ? toggleAction() : pressAction();
}

void ButtonAccessible::doMainAction() { button_.click(); }

PullDownAccessible::PullDownAccessible(PullDownButtonBrick& button)
    : ButtonAccessible(button, QAccessible::ButtonMenu), pullDown_(button) {}

QAccessible::State PullDownAccessible::state() const {
    QAccessible::State state = ButtonAccessible::state();
    state.hasPopup = true;
    return state;
}

QAccessibleInterface* PullDownAccessible::child(int index) const {
    return index == 0 ? QAccessible::queryAccessibleInterface(pullDown_.menu()) : nullptr;
}

int PullDownAccessible::indexOfChild(const QAccessibleInterface* child) const {
    return child->object() == pullDown_.menu() ? 0 : -1;
}

void PullDownAccessible::doMainAction() {
    if (pullDown_.isEnabled()) pullDown_.showMenu();
}

}  // namespace marquell::toolkit
