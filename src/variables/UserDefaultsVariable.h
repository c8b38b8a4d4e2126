// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/UserDefaults.h"
#include "variables/KVOResponder.h"
#include "variables/ObservableVariable.h"
#include "variables/StoredForm.h"

namespace marquell::variables {

/// A variable whose value lives in the user's settings under a key, and nowhere else. It observes
/// the key, so its listeners hear of every write, whoever makes it. The initial value becomes the
/// key's registered default, and is what the variable holds when the stored value can't be read.
template <typename T>
class UserDefaultsVariable : public ObservableVariable<ReadWriteVariableType<T>> {
public:
    UserDefaultsVariable(std::string storageKey, T initialValue,
                         std::shared_ptr<platform::UserDefaults> defaults) requires
        DirectlyStored<T> : UserDefaultsVariable(std::move(storageKey), initialValue, initialValue,
                                                 directForm<T>(), std::move(defaults)) {}
    UserDefaultsVariable(const UserDefaultsVariable&) = delete;
    UserDefaultsVariable& operator=(const UserDefaultsVariable&) = delete;

    const std::string& storageKey() const { return storageKey_; }

    T value() const override {
        const auto stored = defaults_->object(storageKey_);
        return stored ? form_.fromStored(*stored).value_or(unreadableValue_) : unreadableValue_;
    }

    void setValue(T value) override {
        if (auto stored = form_.toStored(value)) {
            defaults_->setObject(std::move(*stored), storageKey_);
        }
    }

protected:
    UserDefaultsVariable(std::string storageKey, const T& initialValue, T unreadableValue,
                         StoredForm<T> form, std::shared_ptr<platform::UserDefaults> defaults)
        : storageKey_(std::move(storageKey)),
          unreadableValue_(std::move(unreadableValue)),
          form_(std::move(form)),
          defaults_(std::move(defaults)) {
        if (auto stored = form_.toStored(initialValue)) {
            defaults_->registerDefault(storageKey_, std::move(*stored));
        }
        internalKVOResponder_.emplace(storageKey_, defaults_, false,
                                      [this](auto&, const auto&) { this->notifyListeners(); });
    }

private:
    const std::string storageKey_;
    const T unreadableValue_;
    const StoredForm<T> form_;
    const std::shared_ptr<platform::UserDefaults> defaults_;
    std::optional<KVOResponder> internalKVOResponder_;  // last: its function uses all the others
};

/// An enumeration, stored as its raw value.
template <typename Enumeration>
class RawRepresentableUserDefaultsVariable : public UserDefaultsVariable<Enumeration> {
public:
    RawRepresentableUserDefaultsVariable(std::string storageKey, Enumeration initialValue,
                                         std::shared_ptr<platform::UserDefaults> defaults)
        : UserDefaultsVariable<Enumeration>(std::move(storageKey), initialValue, initialValue,
                                            rawValueForm<Enumeration>(), std::move(defaults)) {}
};

/// Any type that has a JSON form, stored as that text. A value that can't be written leaves what is
/// stored; a text that can't be read counts as `nilValue`.
template <typename T>
class CodableUserDefaultsVariable : public UserDefaultsVariable<T> {
public:
    CodableUserDefaultsVariable(std::string storageKey, const T& initialValue, T nilValue,
                                std::shared_ptr<platform::UserDefaults> defaults)
        : UserDefaultsVariable<T>(std::move(storageKey), initialValue, std::move(nilValue),
                                  jsonForm<T>(), std::move(defaults)) {}
};

/// The same for a value that may be absent, which a text that can't be read counts as.
template <typename T>
class NillableCodableUserDefaultsVariable : public UserDefaultsVariable<std::optional<T>> {
public:
    NillableCodableUserDefaultsVariable(std::string storageKey,
                                        const std::optional<T>& initialValue,
                                        std::shared_ptr<platform::UserDefaults> defaults)
        : UserDefaultsVariable<std::optional<T>>(std::move(storageKey), initialValue, std::nullopt,
                                                 jsonForm<std::optional<T>>(),
                                                 std::move(defaults)) {}
};

}  // namespace marquell::variables
