// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "platform/TextList.h"

namespace marquell::platform {

/// Bytes that are no text.
struct DefaultsData {
    std::string bytes;

    friend bool operator==(const DefaultsData&, const DefaultsData&) = default;
};

/// Stands for a value in the settings file that is of none of the other types.
struct DefaultsOther {
    friend bool operator==(const DefaultsOther&, const DefaultsOther&) = default;
};

/// What a key of the settings can hold. Texts are UTF-8.
using DefaultsValue =
    std::variant<DefaultsOther, bool, std::int64_t, double, std::string, TextList, DefaultsData>;

/// `value` as the type that `model` has: itself if it has that type. A truth may also be given as 0
/// or 1, a whole number as a floating one, a floating number as a whole one; anything else doesn't
/// fit.
std::optional<DefaultsValue> fitted(const DefaultsValue& value, const DefaultsValue& model);

/// Equal, or both no number, which compares unequal to itself.
bool identical(const DefaultsValue& a, const DefaultsValue& b);

}  // namespace marquell::platform
