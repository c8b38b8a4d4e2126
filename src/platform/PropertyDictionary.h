// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace marquell::platform {

/// What a reader found out about one file, by key. The key's numbers belong to the kind of file
/// (ImagePropertyKey for images). Texts are valid UTF-8 without NUL, numbers are finite, lists have
/// at most maximumListLength members and no empty texts.
using PropertyKey = std::uint16_t;
using PropertyValue =
    std::variant<double, std::string, std::vector<std::string>, std::vector<double>>;
using PropertyDictionary = std::map<PropertyKey, PropertyValue>;

inline constexpr std::size_t maximumListLength = 10'000;

/// The longest encoded dictionary. Both sides keep to it.
inline constexpr std::size_t maximumPropertyBytes = std::size_t{4} * 1024 * 1024;

/// The dictionary as bytes for decodeProperties. Leaves out values that a dictionary must not hold,
/// and the longest ones if it would be longer than maximumPropertyBytes.
std::string encodeProperties(const PropertyDictionary& properties);

/// Reads bytes that may be anything, and takes no more memory than a few times their length. Absent
/// if they are not exactly what encodeProperties makes of some dictionary: a length that leads
/// outside, an unknown kind, a key twice or out of order, a value that must not be.
std::optional<PropertyDictionary> decodeProperties(std::string_view bytes);

}  // namespace marquell::platform
