// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "variables/VariableTypes.h"

namespace marquell::variables {

/// Any variable that can be read, as a value. Keeps the variable alive.
template <typename T>
class AnyReadOnlyVariable {
public:
    using Listener = typename ReadOnlyVariableType<T>::Listener;

    explicit AnyReadOnlyVariable(std::shared_ptr<ReadOnlyVariableType<T>> variable)
        : variable_(std::move(variable)) {}

    T value() const { return variable_->value(); }
    void addHotListener(Listener listener) const { variable_->addHotListener(std::move(listener)); }
    void addColdListener(Listener listener) const {
        variable_->addColdListener(std::move(listener));
    }

private:
    std::shared_ptr<ReadOnlyVariableType<T>> variable_;
};

/// Any variable that can be read and set, behind one type. Keeps the variable alive.
template <typename T>
class AnyReadWriteVariable : public ReadWriteVariableType<T> {
public:
    using typename ReadWriteVariableType<T>::Listener;

    explicit AnyReadWriteVariable(std::shared_ptr<ReadWriteVariableType<T>> variable)
        : variable_(std::move(variable)) {}

    T value() const override { return variable_->value(); }
    void setValue(T value) override { variable_->setValue(std::move(value)); }
    void addHotListener(Listener listener) override {
        variable_->addHotListener(std::move(listener));
    }
    void addColdListener(Listener listener) override {
        variable_->addColdListener(std::move(listener));
    }

private:
    std::shared_ptr<ReadWriteVariableType<T>> variable_;
};

}  // namespace marquell::variables
