// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/ExifValue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "platform/NumberText.h"

namespace marquell::helpers {
namespace {

std::string_view untilNul(std::string_view bytes) { return bytes.substr(0, bytes.find('\0')); }

std::optional<double> finite(std::optional<double> number) {
    return number && std::isfinite(*number) ? number : std::nullopt;
}

/// The double that the shortest text of the number stands for: 2.8, not 2.799999952316284.
std::optional<double> widened(float number) {
    if (!std::isfinite(number)) return std::nullopt;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    double wide = 0;
    std::from_chars(text.data(), end, wide);
    return wide;
}

template <typename Values>
std::vector<Rational> rationalsOf(const Values& values) {
    std::vector<Rational> rationals;
    for (const auto& [numerator, denominator] : values)
        rationals.push_back({numerator, denominator});
    return rationals;
}

/// Whether a UTF-16 unit is of a script that comments are commonly written in, or half of a pair.
bool isCommon(unsigned unit) {
    struct Range {
        unsigned first;
        unsigned last;
    };
    constexpr std::array ranges = {
        Range{0x0009, 0x000D}, Range{0x0020, 0x007E}, Range{0x00A0, 0x06FF}, Range{0x2010, 0x2027},
        Range{0x3000, 0x30FF}, Range{0x4E00, 0x9FFF}, Range{0xAC00, 0xDFFF}, Range{0xFF00, 0xFF9F},
    };
    return std::any_of(ranges.begin(), ranges.end(), [unit](const Range& range) {
        return unit >= range.first && unit <= range.last;
    });
}

/// The order of UTF-16 text is the directory's by the standard, but not all cameras keep to it: the
/// other one is right if it makes more of it common letters.
Charset utf16Of(std::string_view bytes, Exiv2::ByteOrder order) {
    if (bytes.starts_with("\xFE\xFF")) return Charset::utf16BigEndian;
    if (bytes.starts_with("\xFF\xFE")) return Charset::utf16LittleEndian;
    int moreBigEndian = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const unsigned first = static_cast<unsigned char>(bytes[i]);
        const unsigned second = static_cast<unsigned char>(bytes[i + 1]);
        moreBigEndian += isCommon(first << 8U | second) ? 1 : 0;
        moreBigEndian -= isCommon(second << 8U | first) ? 1 : 0;
    }
    if (moreBigEndian == 0) moreBigEndian = order == Exiv2::bigEndian ? 1 : -1;
    return moreBigEndian > 0 ? Charset::utf16BigEndian : Charset::utf16LittleEndian;
}

std::string twoDigits(const std::string& text) {
    const bool isShort = text.size() == 1 || (text.size() > 1 && text[1] == '.');
    return isShort ? "0" + text : text;
}

}  // namespace

std::string rawBytes(const Exiv2::Value& value, Exiv2::ByteOrder order) {
    std::string bytes(static_cast<std::size_t>(std::max(0L, value.size())), '\0');
    if (!bytes.empty()) value.copy(reinterpret_cast<Exiv2::byte*>(bytes.data()), order);
    return bytes;
}

std::vector<Rational> rationals(const Exiv2::Value& value) {
    // The base class would squeeze unsigned parts into signed ones.
    if (const auto* plain = dynamic_cast<const Exiv2::URationalValue*>(&value)) {
        return rationalsOf(plain->value_);
    }
    if (const auto* withSign = dynamic_cast<const Exiv2::RationalValue*>(&value)) {
        return rationalsOf(withSign->value_);
    }
    return {};
}

std::optional<double> component(const Exiv2::Value& value, long index) {
    if (index >= value.count()) return std::nullopt;
    const auto place = static_cast<std::size_t>(index);
    switch (value.typeId()) {
        case Exiv2::unsignedRational:
        case Exiv2::signedRational:
            return quotient(rationals(value).at(place));
        case Exiv2::tiffFloat:
            return widened(value.toFloat(index));
        case Exiv2::tiffDouble:
            if (const auto* numbers = dynamic_cast<const Exiv2::DoubleValue*>(&value)) {
                return finite(numbers->value_.at(place));
            }
            return std::nullopt;
        default:
            return static_cast<double>(value.toLong(index));
    }
}

OptionalProperty textProperty(std::string text) {
    if (text.empty()) return std::nullopt;
    return text;
}

OptionalProperty plainProperty(const Exiv2::Value& value) {
    if (dynamic_cast<const Exiv2::StringValueBase*>(&value) != nullptr) {
        const std::string bytes = rawBytes(value, Exiv2::bigEndian);
        return textProperty(decodedText(untilNul(bytes), Charset::likely));
    }
    if (value.count() == 1) return firstNumber(value);
    // Longer ones are bulk data, which no field that is asked for has.
    constexpr long longest = 64;
    if (value.count() > longest) return std::nullopt;
    std::vector<std::string> texts;
    bool isAnyKnown = false;
    for (long i = 0; i < value.count(); ++i) {
        const auto number = component(value, i);
        isAnyKnown = isAnyKnown || number.has_value();
        texts.push_back(number ? platform::numberText(*number) : "?");
    }
    if (!isAnyKnown) return std::nullopt;
    return texts;
}

OptionalProperty firstNumber(const Exiv2::Value& value) {
    if (dynamic_cast<const Exiv2::StringValueBase*>(&value) != nullptr) return plainProperty(value);
    const auto number = component(value, 0);
    if (!number) return std::nullopt;
    return *number;
}

OptionalProperty versionText(std::string_view digits) {
    digits = untilNul(digits);
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    if (digits.size() != 4 || !std::all_of(digits.begin(), digits.end(), isDigit)) {
        return std::nullopt;
    }
    std::string text(digits.substr(digits[0] == '0' ? 1 : 0, digits[0] == '0' ? 1 : 2));
    text.append(".").append(1, digits[2]);
    if (digits[3] != '0') text.append(".").append(1, digits[3]);
    return text;
}

OptionalProperty dottedNumbers(const Exiv2::Value& value) {
    constexpr long parts = 4;
    if (value.count() != parts) return std::nullopt;
    std::string text;
    for (long i = 0; i < parts; ++i) {
        text.append(i == 0 ? "" : ".").append(std::to_string(value.toLong(i)));
    }
    return text;
}

OptionalProperty timeText(const Exiv2::Value& value) {
    const std::vector<Rational> parts = rationals(value);
    if (parts.size() != 3) return plainProperty(value);
    std::string text;
    for (const Rational& part : parts) {
        const auto number = part.isUnknown() ? 0.0 : quotient(part);
        if (!number || *number < 0 || *number > 60) return std::nullopt;
        text.append(text.empty() ? "" : ":").append(twoDigits(platform::numberText(*number)));
    }
    if (parts[0].isUnknown()) return std::nullopt;
    return text;
}

OptionalProperty decimalDegrees(const Exiv2::Value& value) {
    const auto angle = degrees(rationals(value));
    if (!angle) return std::nullopt;
    return *angle;
}

OptionalProperty commentText(const std::string& bytes, Exiv2::ByteOrder order) {
    using namespace std::string_view_literals;
    const std::string_view code = std::string_view(bytes).substr(0, 8);
    const std::string_view text = std::string_view(bytes).substr(code.size());
    if (code.starts_with("UNICODE"sv)) return textProperty(decodedText(text, utf16Of(text, order)));
    if (code.starts_with("JIS"sv)) return textProperty(decodedText(text, Charset::jis));
    const bool isDeclared = code == "ASCII\0\0\0"sv || code == "\0\0\0\0\0\0\0\0"sv;
    // Some programs leave the code out.
    return textProperty(
        decodedText(untilNul(isDeclared ? text : std::string_view(bytes)), Charset::likely));
}

OptionalProperty readableText(const std::string& bytes) {
    if (!isReadableText(bytes)) return std::nullopt;
    return textProperty(decodedText(bytes, Charset::likely));
}

}  // namespace marquell::helpers
