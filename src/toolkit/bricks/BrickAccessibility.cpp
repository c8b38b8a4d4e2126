// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/BrickAccessibility.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLineEdit>

#include "toolkit/bricks/ButtonAccessible.h"
#include "toolkit/bricks/ButtonStateValueCheckBoxBrick.h"
#include "toolkit/bricks/ColorWellBrick.h"
#include "toolkit/bricks/FieldAccessible.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/ListBrick.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/Segment.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SliderAccessible.h"
#include "toolkit/bricks/SliderBrick.h"
#include "toolkit/bricks/Spinner.h"
#include "toolkit/bricks/SwitchBrick.h"

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

/// Named by its label and the choice, since programs are told no other text of it.
class ListBrickAccessible : public QAccessibleWidget {
public:
    explicit ListBrickAccessible(ListBrick& box)
        : QAccessibleWidget(&box, QAccessible::ComboBox), box_(box) {}

    QString text(QAccessible::Text part) const override {
        QString choice = box_.currentData(Qt::AccessibleTextRole).toString();
        if (box_.isEditable() || choice.isEmpty()) choice = box_.currentText();
        if (part == QAccessible::Value) return choice;
        QString own = QAccessibleWidget::text(part);
        if (part != QAccessible::Name) return own;
        if (box_.isEditable()) return own.isEmpty() ? choice : own;  // the field tells its text
        if (own.isEmpty()) return choice;
        const bool hasColon = own.endsWith(u':');
        return own + (hasColon ? QStringLiteral(" ") : QStringLiteral(": ")) + choice;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = box_.view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }

    int childCount() const override { return box_.isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        if (index == 0) return QAccessible::queryAccessibleInterface(box_.view());
        return index == 1 ? QAccessible::queryAccessibleInterface(box_.lineEdit()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == box_.view()) return 0;
        return box_.isEditable() && child->object() == box_.lineEdit() ? 1 : -1;
    }

    QStringList actionNames() const override {
        return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& actionName) override {
        if (actionName == showMenuAction()) {
            box_.showPopup();
        } else {
            QAccessibleWidget::doAction(actionName);
        }
    }

private:
    ListBrick& box_;
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    if (auto* label = dynamic_cast<Label*>(object)) return new LabelAccessible(*label);
    if (auto* box = dynamic_cast<ListBrick*>(object)) return new ListBrickAccessible(*box);
    if (auto* segment = dynamic_cast<Segment*>(object)) {
        return new ButtonAccessible(*segment, QAccessible::RadioButton);
    }
    if (auto* row = dynamic_cast<SegmentedControlBrick*>(object)) {
        return new QAccessibleWidget(row, QAccessible::Grouping);
    }
    if (auto* slider = dynamic_cast<SliderBrick*>(object)) return new SliderAccessible(*slider);
    if (auto* field = qobject_cast<QLineEdit*>(object); field && isFieldOfBrick(*field)) {
        return new FieldAccessible(*field);
    }
    if (auto* pullDown = dynamic_cast<PullDownButtonBrick*>(object)) {
        return new PullDownAccessible(*pullDown);
    }
    if (auto* spinner = dynamic_cast<Spinner*>(object)) {
        return new QAccessibleWidget(spinner, QAccessible::Animation);
    }
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (dynamic_cast<SwitchBrick*>(object) ||
        dynamic_cast<ButtonStateValueCheckBoxBrick*>(object)) {
        return new ButtonAccessible(*button, QAccessible::CheckBox);
    }
    if (auto* well = dynamic_cast<ColorWellBrick*>(object)) {
        return new ButtonAccessible(*well, QAccessible::ColorChooser);
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
