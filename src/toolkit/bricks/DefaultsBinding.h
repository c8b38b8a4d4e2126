// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/DefaultsValue.h"
#include "platform/UserDefaults.h"
#include "variables/KVOResponder.h"

namespace marquell::toolkit {

class ButtonStateValueCheckBoxBrick;
class IntegerTextField;
class PopUpButtonBrick;
class SegmentedControlBrick;
class SmartTextField;
class SwitchBrick;

/// Ties what a control shows to a key of the settings: now, at each change of the key, and back at
/// each change by the user. It lives as long as the control, whose own functions stay free and find
/// what the user did stored. What is stored is not touched until the user changes it. A stored
/// value that does not fit counts as the registered default, and without one as nothing: off, no
/// selection, an empty text; a field for a number then keeps what it shows.
class DefaultsBinding : public QObject {
public:
    using Defaults = std::shared_ptr<platform::UserDefaults>;

    /// Truths.
    static void bindValue(ButtonStateValueCheckBoxBrick* control, const std::string& key,
                          const Defaults& defaults);
    static void bindValue(SwitchBrick* control, const std::string& key, const Defaults& defaults);
    /// A whole number, stored when it is settled.
    static void bindValue(IntegerTextField* control, const std::string& key,
                          const Defaults& defaults);
    /// A text, stored as it is typed.
    static void bindValue(SmartTextField* control, const std::string& key,
                          const Defaults& defaults);

    /// The index of the chosen item, separators counting. What is no item selects none, until a
    /// popup is given an item with that index.
    static void bindSelectedIndex(PopUpButtonBrick* control, const std::string& key,
                                  const Defaults& defaults);
    static void bindSelectedIndex(SegmentedControlBrick* control, const std::string& key,
                                  const Defaults& defaults);

private:
    using Stored = std::optional<platform::DefaultsValue>;

    DefaultsBinding(QWidget* control, std::string key, Defaults defaults);
    template <typename Button>
    static void bindState(Button* control, const std::string& key, const Defaults& defaults);
    template <typename Choice>
    static DefaultsBinding* bindIndex(Choice* control, const std::string& key,
                                      const Defaults& defaults, void (Choice::*select)(int index));

    void show(platform::DefaultsValue model, std::function<void(const Stored& stored)> showValue);
    void store(platform::DefaultsValue value) const;

    const std::string key_;
    const Defaults defaults_;
    std::function<void()> showStored_;
    std::unique_ptr<variables::KVOResponder> responder_;
};

}  // namespace marquell::toolkit
