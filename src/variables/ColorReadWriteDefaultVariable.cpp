// SPDX-License-Identifier: GPL-3.0-or-later
#include "variables/ColorReadWriteDefaultVariable.h"

#include <utility>
#include <variant>

namespace marquell::variables {

ColorReadWriteDefaultVariable::ColorReadWriteDefaultVariable(
    std::string storageKey, const Color& initialValue,
    std::shared_ptr<platform::UserDefaults> defaults)
    : storageKey_(std::move(storageKey)),
      defaults_(std::move(defaults)),
      privateValue_(std::make_shared<Color>(initialValue)) {
    const auto stored = defaults_->object(storageKey_);
    if (!stored) return;
    const auto* data = std::get_if<platform::DefaultsData>(&*stored);
    if (data != nullptr) *privateValue_ = colorFrom(*data).value_or(initialValue);
}

void ColorReadWriteDefaultVariable::setValue(Color value) {
    *privateValue_ = value;
    // A listener may end this variable, or set another colour, which is then the one to be stored.
    const auto newest = privateValue_;
    const auto defaults = defaults_;
    const std::string storageKey = storageKey_;
    notifyListeners();
    defaults->setObject(colorData(*newest), storageKey);
}

}  // namespace marquell::variables
