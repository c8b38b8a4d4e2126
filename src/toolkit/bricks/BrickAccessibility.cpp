// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/BrickAccessibility.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>

#include "toolkit/bricks/ColorWellBrick.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/Segment.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SwitchBrick.h"
#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {
namespace {

class LabelAccessible : public QAccessibleWidget {
public:
    explicit LabelAccessible(Label& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), label_(label) {}

    QString text(QAccessible::Text part) const override {
        const QString own = QAccessibleWidget::text(part);
        return part == QAccessible::Name && own.isEmpty() ? label_.text() : own;
    }

private:
    const Label& label_;
};

/// Named by its label, with the choice as value: left to itself, it would be named by the choice.
class PopUpAccessible : public QAccessibleWidget {
public:
    explicit PopUpAccessible(PopUpButtonBrick& popup)
        : QAccessibleWidget(&popup, QAccessible::ComboBox), popup_(popup) {}

    QString text(QAccessible::Text part) const override {
        QString choice =
            popup_.itemData(popup_.indexOfSelectedItem(), Qt::AccessibleTextRole).toString();
        if (part == QAccessible::Value) return choice;
        const QString own = QAccessibleWidget::text(part);
        return part == QAccessible::Name && own.isEmpty() ? choice : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = popup_.view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(popup_.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == popup_.view() ? 0 : -1;
    }

    QStringList actionNames() const override {
        return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& actionName) override {
        if (actionName == showMenuAction()) {
            popup_.showPopup();
        } else {
            QAccessibleWidget::doAction(actionName);
        }
    }

private:
    PopUpButtonBrick& popup_;
};

/// A button that a brick paints itself.
class PaintedButtonAccessible : public QAccessibleWidget {
public:
    PaintedButtonAccessible(QAbstractButton& button, QAccessible::Role role)
        : QAccessibleWidget(&button, role), button_(button) {}

    QString text(QAccessible::Text part) const override {
        if (part == QAccessible::Value) {
            const auto* well = dynamic_cast<const ColorWellBrick*>(&button_);
            if (well != nullptr) return well->color().name();
        }
        const QString own = QAccessibleWidget::text(part);
        return part == QAccessible::Name && own.isEmpty() ? textOfTitle(button_.text()) : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button_.isCheckable();
        state.checked = button_.isChecked();
        state.pressed = button_.isDown();
        return state;
    }

    QStringList actionNames() const override {
        return QStringList(mainAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& actionName) override {
        if (actionName == mainAction()) {
            button_.click();
        } else {
            QAccessibleWidget::doAction(actionName);
        }
    }

private:
    QString mainAction() const { return button_.isCheckable() ? toggleAction() : pressAction(); }

    QAbstractButton& button_;
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    if (auto* label = dynamic_cast<Label*>(object)) return new LabelAccessible(*label);
    if (auto* popup = dynamic_cast<PopUpButtonBrick*>(object)) return new PopUpAccessible(*popup);
    if (auto* segment = dynamic_cast<Segment*>(object)) {
        return new PaintedButtonAccessible(*segment, QAccessible::RadioButton);
    }
    if (auto* row = dynamic_cast<SegmentedControlBrick*>(object)) {
        return new QAccessibleWidget(row, QAccessible::Grouping);
    }
    if (auto* box = dynamic_cast<SwitchBrick*>(object)) {
        return new PaintedButtonAccessible(*box, QAccessible::CheckBox);
    }
    if (auto* well = dynamic_cast<ColorWellBrick*>(object)) {
        return new PaintedButtonAccessible(*well, QAccessible::ColorChooser);
    }
    return nullptr;
}

}  // namespace

void provideBrickAccessibility() {
    static const bool isProvided = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
    static_cast<void>(isProvided);
}

}  // namespace marquell::toolkit
