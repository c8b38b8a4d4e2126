// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace marquell::platform {

namespace detail {

template <typename T>
struct JsonCoder {
    static nlohmann::json toJson(const T& value) { return value; }
    static T fromJson(const nlohmann::json& json) { return json.get<T>(); }
};

/// An absent value is null.
template <typename T>
struct JsonCoder<std::optional<T>> {
    static nlohmann::json toJson(const std::optional<T>& value) {
        return value ? JsonCoder<T>::toJson(*value) : nlohmann::json();
    }
    static std::optional<T> fromJson(const nlohmann::json& json) {
        if (json.is_null()) return std::nullopt;
        return JsonCoder<T>::fromJson(json);
    }
};

}  // namespace detail

/// The value as JSON text; absent if it can't be coded. For a type of one's own, `to_json` and
/// `from_json` stand beside it, as NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE writes them.
template <typename T>
std::optional<std::string> encodeJson(const T& value) {
    try {
        constexpr auto replace = nlohmann::json::error_handler_t::replace;
        return detail::JsonCoder<T>::toJson(value).dump(-1, ' ', false, replace);
    } catch (const nlohmann::json::exception&) {
        return std::nullopt;
    }
}

/// The value that a JSON text stands for; absent if it is none of that type.
template <typename T>
std::optional<T> decodeJson(std::string_view text) {
    try {
        return detail::JsonCoder<T>::fromJson(nlohmann::json::parse(text));
    } catch (const nlohmann::json::exception&) {
        return std::nullopt;
    }
}

}  // namespace marquell::platform
