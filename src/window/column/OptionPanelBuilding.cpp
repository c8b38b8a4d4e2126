// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/column/OptionPanelBuilding.h"

#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/DefaultsBinding.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/layout/ViewMeasures.h"
#include "window/Text.h"
#include "window/column/ColumnMeasures.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double panelTopInset = 13;  // 16 below the popup of formats
constexpr double labelGap = 8;

PopUpButtonBrick* popUpFor(const OptionRow& row, const pipeline::DataModel& dataModel) {
    auto* popUp = new PopUpButtonBrick;
    popUp->small();
    for (const char* title : row.menu.titles) {
        if (title == nullptr) {
            popUp->addSeparator();
        } else {
            popUp->addItem(localizedText(title, "popup menu choice"));
        }
    }
    DefaultsBinding::bindSelectedIndex(popUp, (dataModel.*row.setting)->storageKey(),
                                       dataModel.defaults);
    setContentCompressionResistancePriority(popUp, Qt::Horizontal, LayoutPriority::low);
    setContentHuggingPriority(popUp, Qt::Horizontal, LayoutPriority::lowest);
    return popUp;
}

/// Labels and popups of a panel, all labels as wide as the widest of them.
class PanelRows {
public:
    PanelRows(Wall& wall, const pipeline::DataModel& dataModel)
        : wall_(wall), dataModel_(dataModel) {}

    void add(const OptionRow& row) {
        auto* popUp = popUpFor(row, dataModel_);
        auto* label = standardLabel(localizedText(row.menu.label, "label"));
        label->small();
        label->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
        label->setBuddy(popUp);
        addLabel(label);
        wall_.factory().internalAddBrick(popUp, [&](LayoutConstraintMaker& make) {
            make.container().pin(right, right, fragmentRightInset);
            make.andView(label).pin(left, right, labelGap).pin(firstBaseline, firstBaseline, 0);
            pinBelowLast(make);
        });
        last_ = popUp;
        if (firstLabel_ == nullptr) firstLabel_ = label;
    }

    void add(const OptionBox& option) {
        auto* box = new CheckBoxBrick(localizedText(option.title, "checkbox title"));
        box->small();
        DefaultsBinding::bindValue(box, (dataModel_.*option.setting)->storageKey(),
                                   dataModel_.defaults);
        wall_.factory().internalAddBrick(box, [&](LayoutConstraintMaker& make) {
            make.andView(last_).pin(left, left, 0);
            pinBelowLast(make);
        });
        keepInside(box);
        last_ = box;
    }

    void end() {
        LayoutConstraintMaker make(last_);
        make.container().pin(bottom, bottom, fragmentBottomInset);
        addConstraints(&wall_, make.constraints);
    }

private:
    /// The popup's baseline places the label, so that the row keeps one.
    void addLabel(Label* label) {
        wall_.factory().internalAddBrick(label, [&](LayoutConstraintMaker& make) {
            make.container().pin(left, left, fragmentLeftInset);
            if (firstLabel_ != nullptr) make.andView(firstLabel_).width(0);
        });
    }

    void pinBelowLast(LayoutConstraintMaker& make) {
        if (last_ == nullptr) {
            make.container().pin(top, top, panelTopInset);
        } else {
            make.andView(last_).place(top, bottom);
        }
    }

    /// A title that is too long is cut.
    void keepInside(QWidget* view) {
        setContentCompressionResistancePriority(view, Qt::Horizontal, LayoutPriority::low);
        addConstraints(&wall_,
                       {std::make_shared<LayoutConstraint>(view, right, Relation::lessThanOrEqual,
                                                           &wall_, right, 1, fragmentRightInset)});
    }

    Wall& wall_;
    const pipeline::DataModel& dataModel_;
    QWidget* firstLabel_ = nullptr;
    QWidget* last_ = nullptr;
};

}  // namespace

void buildOptionPanel(Wall& wall, const OptionPanel& panel, const pipeline::DataModel& dataModel) {
    PanelRows rows(wall, dataModel);
    for (const OptionRow& row : panel.rows) rows.add(row);
    for (const OptionBox& box : panel.boxes) rows.add(box);
    rows.end();
}

}  // namespace marquell::window
