// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/XmpCamera.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/common/TagDate.h"
#include "helpers/common/TextList.h"
#include "helpers/image/ExifValue.h"
#include "helpers/image/Rational.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using Key = platform::ImagePropertyKey;

enum class Form : std::uint8_t {
    text,
    number,   ///< "28/10", "28" or "2.8"
    degrees,  ///< "48,51.4933N" or "48,51,30N"
    moment,   ///< of ISO 8601
    clock,    ///< the time of day of such a moment in UTC
    version,  ///< "0231"
};

struct Field {
    std::string_view name;  ///< in the library's spelling
    Key key;
    Form form;
};

// Where a key has several rows, the first that the packet has counts.
constexpr std::array fields = {
    Field{"Xmp.tiff.Make", Key::kCGImagePropertyTIFFMake, Form::text},
    Field{"Xmp.tiff.Model", Key::kCGImagePropertyTIFFModel, Form::text},
    Field{"Xmp.exifEX.LensModel", Key::kCGImagePropertyExifLensModel, Form::text},
    Field{"Xmp.aux.Lens", Key::kCGImagePropertyExifLensModel, Form::text},
    Field{"Xmp.exif.UserComment", Key::kCGImagePropertyExifUserComment, Form::text},
    Field{"Xmp.exif.FNumber", Key::kCGImagePropertyExifFNumber, Form::number},
    Field{"Xmp.exif.ExposureTime", Key::kCGImagePropertyExifExposureTime, Form::number},
    Field{"Xmp.exif.ISOSpeedRatings", Key::kCGImagePropertyExifISOSpeedRatings, Form::number},
    Field{"Xmp.exifEX.PhotographicSensitivity", Key::kCGImagePropertyExifISOSpeedRatings,
          Form::number},
    Field{"Xmp.exifEX.ISOSpeed", Key::kCGImagePropertyExifISOSpeed, Form::number},
    Field{"Xmp.exif.FocalLength", Key::kCGImagePropertyExifFocalLength, Form::number},
    Field{"Xmp.exif.ApertureValue", Key::kCGImagePropertyExifApertureValue, Form::number},
    Field{"Xmp.exif.ExposureProgram", Key::kCGImagePropertyExifExposureProgram, Form::number},
    Field{"Xmp.exif.ExifVersion", Key::kCGImagePropertyExifVersion, Form::version},
    Field{"Xmp.exif.GPSVersionID", Key::kCGImagePropertyGPSVersion, Form::text},
    Field{"Xmp.exif.GPSLatitude", Key::kCGImagePropertyGPSLatitude, Form::degrees},
    Field{"Xmp.exif.GPSLongitude", Key::kCGImagePropertyGPSLongitude, Form::degrees},
    Field{"Xmp.exif.GPSAltitude", Key::kCGImagePropertyGPSAltitude, Form::number},
    Field{"Xmp.exif.GPSAltitudeRef", Key::kCGImagePropertyGPSAltitudeRef, Form::number},
    Field{"Xmp.exif.GPSSpeed", Key::kCGImagePropertyGPSSpeed, Form::number},
    Field{"Xmp.exif.GPSSpeedRef", Key::kCGImagePropertyGPSSpeedRef, Form::text},
    Field{"Xmp.exif.GPSTrack", Key::kCGImagePropertyGPSTrack, Form::number},
    Field{"Xmp.exif.GPSImgDirection", Key::kCGImagePropertyGPSImgDirection, Form::number},
    Field{"Xmp.exif.GPSTimeStamp", Key::kCGImagePropertyGPSTimeStamp, Form::clock},
    Field{"Xmp.exif.DateTimeOriginal", Key::kCGImagePropertyExifDateTimeOriginal, Form::moment},
    Field{"Xmp.xmp.CreateDate", Key::kCGImagePropertyExifDateTimeDigitized, Form::moment},
    Field{"Xmp.exif.DateTimeDigitized", Key::kCGImagePropertyExifDateTimeDigitized, Form::moment},
    Field{"Xmp.xmp.ModifyDate", Key::kCGImagePropertyTIFFDateTime, Form::moment},
    Field{"Xmp.tiff.DateTime", Key::kCGImagePropertyTIFFDateTime, Form::moment},
};

constexpr std::int64_t maximumPart = std::numeric_limits<std::uint32_t>::max();

/// Takes the digits off the front. Absent if there are none or too many.
std::optional<std::int64_t> takeNumber(std::string_view& text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (text.starts_with('-') || error != std::errc() || number > maximumPart) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return number;
}

/// Takes the decimals off the front; those that are too fine are cut off.
void takeDecimals(std::string_view& text, Rational& number) {
    bool isFine = false;
    for (; !text.empty() && text.front() >= '0' && text.front() <= '9'; text.remove_prefix(1)) {
        const std::int64_t numerator = number.numerator * 10 + (text.front() - '0');
        isFine = isFine || numerator > maximumPart || number.denominator > maximumPart / 10;
        if (!isFine) number = {numerator, number.denominator * 10};
    }
}

std::optional<Rational> rationalOf(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    const auto numerator = takeNumber(text);
    if (!numerator) return std::nullopt;
    Rational number{*numerator, 1};
    if (text.starts_with('/')) {
        text.remove_prefix(1);
        const auto denominator = takeNumber(text);
        if (!denominator) return std::nullopt;
        number.denominator = *denominator;
    } else if (text.starts_with('.')) {
        text.remove_prefix(1);
        takeDecimals(text, number);
    }
    if (!text.empty()) return std::nullopt;
    if (isNegative) number.numerator = -number.numerator;
    return number;
}

OptionalProperty numberOf(std::string_view text) {
    const auto rational = rationalOf(text);
    const auto number = rational ? quotient(*rational) : std::nullopt;
    if (!number) return std::nullopt;
    return *number;
}

/// Degrees, minutes and perhaps seconds, and the letter of the half of the globe.
OptionalProperty degreesOf(std::string_view text) {
    constexpr std::string_view letters = "NESW";
    const std::size_t letter = text.empty() ? std::string_view::npos : letters.find(text.back());
    if (letter == std::string_view::npos) return std::nullopt;
    text.remove_suffix(1);
    const std::vector<std::string> texts = listedTexts(text, ",");
    if (texts.empty() || texts.size() > 3) return std::nullopt;
    std::vector<Rational> parts;
    for (const std::string& part : texts) {
        const auto rational = rationalOf(part);
        if (!rational) return std::nullopt;
        parts.push_back(*rational);
    }
    const auto angle = degrees(parts);
    if (!angle || *angle > (letter % 2 == 0 ? 90 : 180)) return std::nullopt;
    return letter > 1 ? -*angle : *angle;
}

/// "12:30:15.5" of "2024-02-29T12:30:15.5Z".
std::string clockOf(const std::string& moment) {
    constexpr std::size_t begin = std::string_view("2024-02-29T").size();
    constexpr std::size_t length = std::string_view("12:30:15").size();
    if (moment.size() < begin + length) return {};
    const std::size_t end = std::min(moment.find_first_of("Z+-", begin), moment.size());
    const std::string_view zone = std::string_view(moment).substr(end);
    const bool isUtc = zone.empty() || zone == "Z" || zone == "+00:00";
    return isUtc && end - begin >= length ? moment.substr(begin, end - begin) : std::string();
}

OptionalProperty propertyOf(const std::string& text, Form form) {
    switch (form) {
        case Form::text:
            return textProperty(text);
        case Form::number:
            return numberOf(text);
        case Form::degrees:
            return degreesOf(text);
        case Form::moment:
            return textProperty(isoDate(text));
        case Form::clock:
            return textProperty(clockOf(isoDate(text)));
        case Form::version:
            return versionText(text);
    }
    return std::nullopt;
}

}  // namespace

void addXmpCamera(platform::PropertyDictionary& properties, const XmpValues& values) {
    for (const Field& field : fields) {
        const std::vector<std::string> texts = values.textsOf(field.name);
        if (texts.empty()) continue;
        auto property = propertyOf(texts.front(), field.form);
        const auto key = static_cast<platform::PropertyKey>(field.key);
        const auto ofXmp = static_cast<platform::PropertyKey>(key + platform::xmpKeys);
        if (property) properties.emplace(ofXmp, *std::move(property));
    }
}

}  // namespace marquell::helpers
