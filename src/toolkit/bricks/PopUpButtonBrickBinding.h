// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <utility>

#include "toolkit/bricks/Binding.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "variables/AnyVariable.h"

namespace marquell::toolkit {

/// Ties the choice of a popup to a variable of numbers or of an enumeration, whose raw values are
/// the items' tags. Items are added before activate(). A value without an item selects none.
template <typename Value>
class PopUpButtonBrickBinding : public Binding {
public:
    using Variable = variables::AnyReadWriteVariable<Value>;

    PopUpButtonBrickBinding(PopUpButtonBrick* brick,
                            std::shared_ptr<variables::ReadWriteVariableType<Value>> variable)
        : ends_(std::make_shared<Ends>(
              Ends{brick, std::make_unique<Variable>(std::move(variable))})) {}

    /// Null if the popup has gone.
    SmartMenuItem* addItem(const QString& title, Value value) {
        if (ends_->brick == nullptr) return nullptr;
        auto* item = new SmartMenuItem(title, [weakEnds = std::weak_ptr(ends_), value] {
            const auto ends = weakEnds.lock();
            if (ends && ends->variable) ends->variable->setValue(value);
        });
        item->tag = static_cast<int>(value);
        return ends_->brick->addItem(item);
    }

    void addSeparator() {
        if (ends_->brick != nullptr) ends_->brick->addSeparator();
    }

    template <typename Configurator>
    void configure(const Configurator& configurator) {
        configurator.configure(*this);
    }

    void activate() override {
        if (!ends_->variable) return;
        // Listeners stay as long as their variable, so this one may outlive both ends.
        ends_->variable->addHotListener([weakEnds = std::weak_ptr(ends_)](const Value& value) {
            const auto ends = weakEnds.lock();
            if (ends && ends->brick != nullptr) select(*ends->brick, static_cast<int>(value));
        });
    }

    void unbind() override { *ends_ = {}; }

private:
    struct Ends {
        QPointer<PopUpButtonBrick> brick;
        std::unique_ptr<Variable> variable;
    };

    static void select(PopUpButtonBrick& brick, int tag) {
        if (!brick.selectItemWithTag(tag)) brick.selectItemAt(-1);
    }

    const std::shared_ptr<Ends> ends_;
};

}  // namespace marquell::toolkit
