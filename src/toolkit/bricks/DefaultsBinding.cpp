// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/DefaultsBinding.h"

#include <QButtonGroup>
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
    responder_ = std::make_unique<variables::KVOResponder>(
        key_, defaults_, true,
        [this, model = std::move(model), showValue = std::move(showValue)](const auto&,
                                                                           const auto&) {
            const Stored stored = defaults_->object(key_);
            showValue(stored ? platform::fitted(*stored, model) : std::nullopt);
        });
}

void DefaultsBinding::store(DefaultsValue value) const {
    if (defaults_->object(key_) != value) defaults_->setObject(std::move(value), key_);
}

void DefaultsBinding::bindState(QAbstractButton* control, const std::string& key,
                                const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(false, [control](const Stored& stored) {
        control->setChecked(stored && std::get<bool>(*stored));
    });
    connect(control, &QAbstractButton::clicked, binding,
            [binding](bool isOn) { binding->store(isOn); });
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
    control->addNumberListener([binding](std::int64_t number) { binding->store(number); });
}

void DefaultsBinding::bindValue(SmartTextField* control, const std::string& key,
                                const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(std::string(), [control](const Stored& stored) {
        const QString text =
            stored ? QString::fromStdString(std::get<std::string>(*stored)) : QString();
        if (control->text() != text) control->setText(text);
    });
    connect(control, &QLineEdit::textEdited, binding,
            [binding](const QString& text) { binding->store(text.toStdString()); });
}

void DefaultsBinding::bindSelectedIndex(PopUpButtonBrick* control, const std::string& key,
                                        const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(std::int64_t{0},
                  [control](const Stored& stored) { control->selectItemAt(indexFrom(stored)); });
    connect(control, &QComboBox::activated, binding,
            [binding](int index) { binding->store(std::int64_t{index}); });
}

void DefaultsBinding::bindSelectedIndex(SegmentedControlBrick* control, const std::string& key,
                                        const Defaults& defaults) {
    auto* const binding = new DefaultsBinding(control, key, defaults);
    binding->show(std::int64_t{0},
                  [control](const Stored& stored) { control->selectSegment(indexFrom(stored)); });
    connect(control->group(), &QButtonGroup::idClicked, binding,
            [binding](int index) { binding->store(std::int64_t{index}); });
}

}  // namespace marquell::toolkit
