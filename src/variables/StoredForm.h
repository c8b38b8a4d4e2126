// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

#include "platform/DefaultsValue.h"
#include "platform/JsonCoding.h"

namespace marquell::variables {

/// How values of a type are written to the settings and read back.
template <typename T>
struct StoredForm {
    /// Absent if the value can't be stored.
    std::function<std::optional<platform::DefaultsValue>(const T& value)> toStored;
    /// Absent if what is stored is no such value.
    std::function<std::optional<T>(const platform::DefaultsValue& stored)> fromStored;
};

/// Types that the settings hold as they are.
template <typename T>
concept DirectlyStored = std::same_as<T, bool> || std::same_as<T, int> || std::same_as<T, double> ||
    std::same_as<T, std::string> || std::same_as<T, platform::TextList>;

template <DirectlyStored T>
StoredForm<T> directForm() {
    using Held = std::conditional_t<std::same_as<T, int>, std::int64_t, T>;
    const auto fromStored = [](const platform::DefaultsValue& stored) -> std::optional<T> {
        const auto* held = std::get_if<Held>(&stored);
        if (held == nullptr) return std::nullopt;
        if constexpr (std::same_as<T, int>) {
            if (!std::in_range<int>(*held)) return std::nullopt;
        }
        return static_cast<T>(*held);
    };
    return {[](const T& value) { return platform::DefaultsValue(Held(value)); }, fromStored};
}

/// An enumeration by its raw value; `isCase`, found beside it, tells its cases from other numbers.
template <typename Enumeration>
requires std::is_enum_v<Enumeration> StoredForm<Enumeration> rawValueForm() {
    const auto number = directForm<int>();
    const auto fromStored = [number](const auto& stored) -> std::optional<Enumeration> {
        const std::optional<int> raw = number.fromStored(stored);
        if (!raw || !isCase(static_cast<Enumeration>(*raw))) return std::nullopt;
        return static_cast<Enumeration>(*raw);
    };
    return {[number](Enumeration value) { return number.toStored(static_cast<int>(value)); },
            fromStored};
}

/// A JSON text, of any type that platform::encodeJson takes.
template <typename T>
StoredForm<T> jsonForm() {
    const auto toStored = [](const T& value) -> std::optional<platform::DefaultsValue> {
        return platform::encodeJson(value);
    };
    const auto fromStored = [](const platform::DefaultsValue& stored) -> std::optional<T> {
        const auto* text = std::get_if<std::string>(&stored);
        if (text == nullptr) return std::nullopt;
        return platform::decodeJson<T>(*text);
    };
    return {toStored, fromStored};
}

}  // namespace marquell::variables
