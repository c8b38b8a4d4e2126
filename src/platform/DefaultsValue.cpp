// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DefaultsValue.h"

#include <cmath>

namespace marquell::platform {
namespace {

std::optional<DefaultsValue> asInteger(const DefaultsValue& value) {
    if (std::holds_alternative<std::int64_t>(value)) return value;
    const auto* number = std::get_if<double>(&value);
    constexpr double limit = 0x1p63;
    if (number == nullptr || !(*number >= -limit && *number < limit)) return std::nullopt;
    if (*number != std::trunc(*number)) return std::nullopt;
    return static_cast<std::int64_t>(*number);
}

std::optional<DefaultsValue> asTruth(const DefaultsValue& value) {
    const std::optional<DefaultsValue> number = asInteger(value);
    if (number == DefaultsValue(std::int64_t{0})) return false;
    if (number == DefaultsValue(std::int64_t{1})) return true;
    return std::nullopt;
}

std::optional<DefaultsValue> asFloating(const DefaultsValue& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    if (number == nullptr) return std::nullopt;
    return static_cast<double>(*number);
}

}  // namespace

std::optional<DefaultsValue> fitted(const DefaultsValue& value, const DefaultsValue& model) {
    if (value.index() == model.index()) return value;
    if (std::holds_alternative<bool>(model)) return asTruth(value);
    if (std::holds_alternative<std::int64_t>(model)) return asInteger(value);
    if (std::holds_alternative<double>(model)) return asFloating(value);
    return std::nullopt;
}

bool identical(const DefaultsValue& a, const DefaultsValue& b) {
    const auto isNoNumber = [](const DefaultsValue& value) {
        const auto* number = std::get_if<double>(&value);
        return number != nullptr && std::isnan(*number);
    };
    return a == b || (isNoNumber(a) && isNoNumber(b));
}

}  // namespace marquell::platform
