// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "platform/UserDefaults.h"
#include "variables/Color.h"
#include "variables/ObservableVariable.h"

namespace marquell::variables {

/// A colour that is kept in the settings as data. Unlike the other stored variables it has a copy
/// of its own, read once: it does not see what others write under its key.
class ColorReadWriteDefaultVariable : public ObservableVariable<ReadWriteVariableType<Color>> {
public:
    ColorReadWriteDefaultVariable(std::string storageKey, const Color& initialValue,
                                  std::shared_ptr<platform::UserDefaults> defaults);

    Color value() const override { return *privateValue_; }
    void setValue(Color value) override;

private:
    const std::string storageKey_;
    const std::shared_ptr<platform::UserDefaults> defaults_;
    const std::shared_ptr<Color> privateValue_;
};

}  // namespace marquell::variables
