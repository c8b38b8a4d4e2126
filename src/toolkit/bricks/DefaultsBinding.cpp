// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/DefaultsBinding.h"

#include <QAbstractItemModel>
#include <cstdint>
#include <limits>
#include <utility>

#include "toolkit/bricks/ButtonStateValueCheckBoxBrick.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/bricks/SwitchBrick.h"

namespace marquell::toolkit {
namespace {

using platform::DefaultsValue;

/// -1 for nothing, and for what is no index on any machine.
int indexFrom(const std::optional<DefaultsValue>& stored) {
    if (!stored) return -1;
    const auto index = std::get<std::int64_t>(*stored);
    return index > std::numeric_limits<int>::max() || index < 0 ? -1 : static_cast<int>(index);
}

}  // namespace

DefaultsBinding::DefaultsBinding(QWidget* control, std::string key, Defaults defaults)
    : QObject(control), key_(std::move(key)), defaults_(std::move(defaults)) {}

/// Has `showValue` show the stored value, if it is of the type that `model` has, now and always.
void DefaultsBinding::show(DefaultsValue model, std::function<void(const Stored&)> showValue) {
    showStored_ = [this, model = std::move(model), showValue = std::move(showValue)] {
        const Stored stored = defaults_->object(key_);
        showValue(stored ? platform::fitted(*stored, model) : std::nullopt);
    };
    responder_ = std::make_unique<variables::KVOResponder>(
        key_, defaults_, true, [this](const auto&, const auto&) { showStored_(); });
}

void DefaultsBinding::store(DefaultsValue value) const {
    if (defaults_->object(key_) != value) defaults_->setObject(std::move(value), key_);
}

template <typename Button>
void DefaultsBinding::bindState(Button* control, const std::string& key, const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(false, [control](const Stored& stored) {
        control->setChecked(stored && std::get<bool>(*stored));
    });
    control->addUserListener([binding](bool isOn) { binding->store(isOn); });
}

void DefaultsBinding::bindValue(ButtonStateValueCheckBoxBrick* control, const std::string& key,
                                const Defaults& defaults) {
    bindState(control, key, defaults);
}

void DefaultsBinding::bindValue(SwitchBrick* control, const std::string& key,
                                const Defaults& defaults) {
    bindState(control, key, defaults);
}

void DefaultsBinding::bindValue(IntegerTextField* control, const std::string& key,
                                const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(std::int64_t{0}, [control](const Stored& stored) {
        if (stored) control->setIntegerValue(std::get<std::int64_t>(*stored));
    });
    control->addUserListener([binding](std::int64_t number) { binding->store(number); });
}

void DefaultsBinding::bindValue(SmartTextField* control, const std::string& key,
                                const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(std::string(), [control](const Stored& stored) {
        const QString text =
            stored ? QString::fromStdString(std::get<std::string>(*stored)) : QString();
        if (control->text() != text) control->setText(text);
    });
    control->addUserListener(
        [binding](const QString& text) { binding->store(text.toStdString()); });
}

template <typename Choice>
DefaultsBinding* DefaultsBinding::bindIndex(Choice* control, const std::string& key,
                                            const Defaults& defaults,
                                            void (Choice::*select)(int index)) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(std::int64_t{0}, [control, select](const Stored& stored) {
        (control->*select)(indexFrom(stored));
    });
    control->addUserListener([binding](int index) { binding->store(std::int64_t{index}); });
    return binding;
}

void DefaultsBinding::bindSelectedIndex(PopUpButtonBrick* control, const std::string& key,
                                        const Defaults& defaults) {
    auto* const binding = bindIndex(control, key, defaults, &PopUpButtonBrick::selectItemAt);
    // Comes after the popup has chosen the first item, or the next one, by itself.
    connect(control->model(), &QAbstractItemModel::rowsInserted, binding, binding->showStored_);
    connect(control->model(), &QAbstractItemModel::rowsRemoved, binding, binding->showStored_);
}

void DefaultsBinding::bindSelectedIndex(SegmentedControlBrick* control, const std::string& key,
                                        const Defaults& defaults) {
    bindIndex(control, key, defaults, &SegmentedControlBrick::selectSegment);
}

}  // namespace marquell::toolkit
