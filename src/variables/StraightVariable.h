// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <type_traits>
#include <utility>

#include "variables/ObservableVariable.h"

namespace marquell::variables {

/// A variable whose value lives in the object.
template <typename T>
class StraightVariable : public ObservableVariable<ReadWriteVariableType<T>> {
public:
    explicit StraightVariable(T initialValue) : privateValue_(std::move(initialValue)) {}

    T value() const override { return privateValue_; }

    void setValue(T value) override {
        privateValue_ = std::move(value);
        this->notifyListeners();
    }

private:
    T privateValue_;
};

/// The same under the name that values wrapped in place go by.
template <typename T>
class StraightReadWriteVariable : public StraightVariable<T> {
public:
    explicit StraightReadWriteVariable(T wrappedValue)
        : StraightVariable<T>(std::move(wrappedValue)) {}

    T wrappedValue() const { return this->value(); }
    void setWrappedValue(T value) { this->setValue(std::move(value)); }
};

/// For enumerations with a raw value.
template <typename Enumeration>
requires std::is_enum_v<Enumeration>
class RawRepresentableStraightVariable : public StraightVariable<Enumeration> {
public:
    using StraightVariable<Enumeration>::StraightVariable;
};

}  // namespace marquell::variables
