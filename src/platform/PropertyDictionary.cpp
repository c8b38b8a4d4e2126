// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PropertyDictionary.h"

#include <cmath>
#include <cstring>
#include <type_traits>
#include <utility>

#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

// A value is its key, its kind and the length of the content that follows. A list of texts has a
// length before each.
enum class Kind : std::uint16_t { number = 1, text = 2, texts = 3, numbers = 4 };

struct ValueHeader {
    PropertyKey key;
    Kind kind;
    std::uint32_t length;
};

template <typename Plain>
void append(std::string& bytes, const Plain& value) {
    static_assert(std::is_trivially_copyable_v<Plain>);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

/// Takes a plain value off the front; false if there are too few bytes.
template <typename Plain>
bool take(std::string_view& bytes, Plain& value) {
    static_assert(std::is_trivially_copyable_v<Plain>);
    if (bytes.size() < sizeof(value)) return false;
    std::memcpy(&value, bytes.data(), sizeof(value));
    bytes.remove_prefix(sizeof(value));
    return true;
}

bool isText(std::string_view bytes) {
    return bytes.find('\0') == std::string_view::npos && isValidUtf8(bytes);
}

/// Appends a value's content. False if a dictionary must not hold it.
struct ContentEncoder {
    std::string& bytes;

    bool operator()(double number) const {
        append(bytes, number);
        return std::isfinite(number);
    }
    bool operator()(const std::string& text) const {
        bytes.append(text);
        return isText(text);
    }
    bool operator()(const std::vector<std::string>& texts) const {
        if (texts.size() > maximumListLength) return false;
        for (const std::string& text : texts) {
            if (text.empty() || text.size() > maximumPropertyBytes) return false;
            append(bytes, static_cast<std::uint32_t>(text.size()));
            if (!(*this)(text)) return false;
        }
        return true;
    }
    bool operator()(const std::vector<double>& numbers) const {
        bool isFinite = numbers.size() <= maximumListLength;
        for (const double number : numbers) isFinite = (*this)(number) && isFinite;
        return isFinite;
    }
};

/// A value's kind is its place among the alternatives.
Kind kindOf(const PropertyValue& value) { return static_cast<Kind>(value.index() + 1); }

std::optional<double> decodeNumber(std::string_view& content) {
    double number = 0;
    if (!take(content, number) || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::optional<PropertyValue> decodeTexts(std::string_view content) {
    std::vector<std::string> texts;
    while (!content.empty()) {
        std::uint32_t length = 0;
        if (!take(content, length) || length == 0 || length > content.size()) return std::nullopt;
        if (texts.size() == maximumListLength) return std::nullopt;
        const std::string_view text = content.substr(0, length);
        if (!isText(text)) return std::nullopt;
        texts.emplace_back(text);
        content.remove_prefix(length);
    }
    return texts;
}

std::optional<PropertyValue> decodeNumbers(std::string_view content) {
    std::vector<double> numbers;
    if (content.size() > maximumListLength * sizeof(double)) return std::nullopt;
    while (!content.empty()) {
        const auto number = decodeNumber(content);
        if (!number) return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

std::optional<PropertyValue> decodeContent(Kind kind, std::string_view content) {
    switch (kind) {
        case Kind::number:
            if (content.size() != sizeof(double)) return std::nullopt;
            return decodeNumber(content);
        case Kind::text:
            if (!isText(content)) return std::nullopt;
            return std::string(content);
        case Kind::texts:
            return decodeTexts(content);
        case Kind::numbers:
            return decodeNumbers(content);
    }
    return std::nullopt;
}

}  // namespace

std::string encodeProperties(const PropertyDictionary& properties) {
    // The longest go first when there is too much, so the values are made one by one.
    std::map<PropertyKey, std::string> values;
    std::size_t total = 0;
    for (const auto& [key, value] : properties) {
        std::string content;
        if (!std::visit(ContentEncoder{content}, value)) continue;
        if (content.size() > maximumPropertyBytes) continue;
        std::string bytes;
        append(bytes, ValueHeader{key, kindOf(value), static_cast<std::uint32_t>(content.size())});
        bytes.append(content);
        total += bytes.size();
        values.emplace(key, std::move(bytes));
    }
    while (total > maximumPropertyBytes) {
        auto longest = values.begin();
        for (auto it = values.begin(); it != values.end(); ++it) {
            if (it->second.size() > longest->second.size()) longest = it;
        }
        total -= longest->second.size();
        values.erase(longest);
    }
    std::string bytes;
    bytes.reserve(total);
    for (const auto& [key, value] : values) bytes.append(value);
    return bytes;
}

std::optional<PropertyDictionary> decodeProperties(std::string_view bytes) {
    if (bytes.size() > maximumPropertyBytes) return std::nullopt;
    PropertyDictionary properties;
    while (!bytes.empty()) {
        ValueHeader header{};
        if (!take(bytes, header) || header.length > bytes.size()) return std::nullopt;
        if (!properties.empty() && properties.rbegin()->first >= header.key) return std::nullopt;
        auto value = decodeContent(header.kind, bytes.substr(0, header.length));
        if (!value) return std::nullopt;
        properties.emplace_hint(properties.end(), header.key, *std::move(value));
        bytes.remove_prefix(header.length);
    }
    return properties;
}

}  // namespace marquell::platform
