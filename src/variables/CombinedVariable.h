// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "variables/ObservableVariable.h"

namespace marquell::variables {

/// A value computed from two variables each time it is read. Notifies when either of them does.
/// May go away before its inputs.
template <typename Result, typename First, typename Second>
class CombinedVariable : public ObservableVariable<ReadOnlyVariableType<Result>> {
public:
    using Expression = std::function<Result(const First& first, const Second& second)>;

    CombinedVariable(std::shared_ptr<ReadOnlyVariableType<First>> first,
                     std::shared_ptr<ReadOnlyVariableType<Second>> second, Expression expression)
        : first_(std::move(first)), second_(std::move(second)), expression_(std::move(expression)) {
        // The inputs' listeners can't be removed; they find out that this variable has gone.
        const std::weak_ptr<CombinedVariable*> self = self_;
        const auto onChange = [self](const auto&) {
            if (const auto alive = self.lock()) (*alive)->notifyListeners();
        };
        first_->addColdListener(onChange);
        second_->addColdListener(onChange);
    }
    CombinedVariable(const CombinedVariable&) = delete;
    CombinedVariable& operator=(const CombinedVariable&) = delete;

    Result value() const override { return expression_(first_->value(), second_->value()); }

private:
    std::shared_ptr<ReadOnlyVariableType<First>> first_;
    std::shared_ptr<ReadOnlyVariableType<Second>> second_;
    Expression expression_;
    std::shared_ptr<CombinedVariable*> self_ = std::make_shared<CombinedVariable*>(this);
};

}  // namespace marquell::variables
