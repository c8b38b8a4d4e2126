// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/PackedValues.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

namespace marquell::metadata {
namespace {

/// What precedes a value's content. Contents of `longContent` bytes and more have their length in
/// 64 bits between.
struct Header {
    MetadataKey key;
    std::uint8_t sourceAndKind;
    std::uint8_t length;
};
static_assert(sizeof(Header) == 4);
constexpr std::uint8_t longContent = 255;

/// A value's kind is its place among the alternatives.
enum Kind : std::uint8_t { textKind, dateKind, flagKind };
template <Kind kind>
using Alternative = std::variant_alternative_t<kind, StoredValue>;
static_assert(std::is_same_v<Alternative<textKind>, StringValue> &&
              std::is_same_v<Alternative<dateKind>, DateValue> &&
              std::is_same_v<Alternative<flagKind>, BoolValue>);

constexpr unsigned kindBits = 4;
static_assert(std::variant_size_v<StoredValue> <= 1U << kindBits);

std::uint8_t packed(MetadataSource source, std::size_t kind) {
    return static_cast<std::uint8_t>(static_cast<std::size_t>(source) << kindBits | kind);
}

template <typename Plain>
void append(std::string& bytes, const Plain& value) {
    static_assert(std::is_trivially_copyable_v<Plain>);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

template <typename Plain>
Plain plainAt(std::string_view bytes) {
    static_assert(std::is_trivially_copyable_v<Plain>);
    Plain value{};
    std::memcpy(&value, bytes.data(), sizeof(value));
    return value;
}

std::string contentOf(const StoredValue& value) {
    std::string content;
    if (const auto* text = std::get_if<StringValue>(&value)) {
        content = *text;
    } else if (const auto* date = std::get_if<DateValue>(&value)) {
        append(content, date->seconds);
        append(content, date->nanoseconds);
    } else if (const auto* flag = std::get_if<BoolValue>(&value)) {
        append(content, *flag);
    } else {
        append(content, std::get<NSInteger>(value));
    }
    return content;
}

void appendValue(std::string& bytes, MetadataSource source, const KeyedValue& keyed) {
    const std::string content = contentOf(keyed.value);
    const bool isLong = content.size() >= longContent;
    append(bytes, Header{keyed.key, packed(source, keyed.value.index()),
                         isLong ? longContent : static_cast<std::uint8_t>(content.size())});
    if (isLong) append(bytes, static_cast<std::uint64_t>(content.size()));
    bytes.append(content);
}

WrappedMetaDataValue valueOf(std::uint8_t sourceAndKind, std::string_view content) {
    switch (sourceAndKind & ((1U << kindBits) - 1)) {
        case textKind:
            return StringValue(content);
        case dateKind:
            return DateValue{plainAt<std::int64_t>(content),
                             plainAt<std::uint32_t>(content.substr(sizeof(std::int64_t)))};
        case flagKind:
            return plainAt<BoolValue>(content);
        default:
            return plainAt<NSInteger>(content);
    }
}

/// Goes over packed values one by one.
class Walk {
public:
    explicit Walk(std::string_view bytes) : rest_(bytes) {}

    bool next() {
        rest_.remove_prefix(whole_.size());
        if (rest_.empty()) return false;
        header = plainAt<Header>(rest_);
        std::size_t length = header.length;
        std::size_t begin = sizeof(Header);
        if (header.length == longContent) {
            length = plainAt<std::uint64_t>(rest_.substr(begin));
            begin += sizeof(std::uint64_t);
        }
        content = rest_.substr(begin, length);
        whole_ = rest_.substr(0, begin + length);
        return true;
    }

    MetadataSource source() const {
        return static_cast<MetadataSource>(header.sourceAndKind >> kindBits);
    }
    std::string_view whole() const { return whole_; }

    Header header{};
    std::string_view content;

private:
    std::string_view rest_;
    std::string_view whole_;
};

}  // namespace

void PackedValues::store(MetadataSource source, std::span<const KeyedValue> values) {
    std::string added;
    for (const KeyedValue& value : values) appendValue(added, source, value);
    erase(source, [values](MetadataKey key) {
        return std::any_of(values.begin(), values.end(),
                           [key](const KeyedValue& value) { return value.key == key; });
    });
    // Grown in steps it would take up to twice the memory.
    std::string all;
    all.reserve(bytes_.size() + added.size());
    all.append(bytes_).append(added);
    bytes_ = std::move(all);
}

WrappedMetaDataValue PackedValues::find(MetadataKey key, MetadataSource source) const {
    for (Walk walk(bytes_); walk.next();) {
        if (walk.header.key == key && walk.source() == source) {
            return valueOf(walk.header.sourceAndKind, walk.content);
        }
    }
    return None{};
}

void PackedValues::erase(MetadataSource source, const std::function<bool(MetadataKey)>& isErased) {
    std::string kept;
    for (Walk walk(bytes_); walk.next();) {
        if (walk.source() == source && isErased(walk.header.key)) continue;
        kept.append(walk.whole());
    }
    if (kept.size() < bytes_.size()) bytes_ = std::move(kept);
}

}  // namespace marquell::metadata
