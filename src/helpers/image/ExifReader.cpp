// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/ExifReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "helpers/image/ExifValue.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using Key = platform::ImagePropertyKey;

enum class Group : std::uint16_t { image, photo, gps, panasonic };

/// The directories that are looked at, by the names the library has for them.
constexpr std::array<std::pair<std::string_view, Group>, 4> groups = {{
    {"Image", Group::image},
    {"Photo", Group::photo},
    {"GPSInfo", Group::gps},
    {"PanasonicRaw", Group::panasonic},
}};

/// How a field's value becomes a property.
enum class Form {
    plain,     ///< a number, a list or a text, as it comes
    first,     ///< one number, also where some write several
    version,   ///< four digits
    dotted,    ///< four bytes
    degrees,   ///< degrees, minutes, seconds
    time,      ///< hours, minutes, seconds
    comment,   ///< text with its encoding in front
    utf16,     ///< bytes of a text in UTF-16, the least significant first
    readable,  ///< bytes of any kind, of interest only if they are a text
};

struct Field {
    Group group;
    std::uint16_t tag;
    Key key;
    Form form;
};

constexpr std::array fields = {
    Field{Group::image, 0x010F, Key::kCGImagePropertyTIFFMake, Form::plain},
    Field{Group::image, 0x0110, Key::kCGImagePropertyTIFFModel, Form::plain},
    Field{Group::photo, 0x9003, Key::kCGImagePropertyExifDateTimeOriginal, Form::plain},
    Field{Group::photo, 0x9004, Key::kCGImagePropertyExifDateTimeDigitized, Form::plain},
    Field{Group::photo, 0x9206, Key::kCGImagePropertyExifSubjectDistance, Form::plain},
    Field{Group::photo, 0x9207, Key::kCGImagePropertyExifMeteringMode, Form::plain},
    Field{Group::photo, 0x9208, Key::kCGImagePropertyExifLightSource, Form::plain},
    Field{Group::photo, 0x9209, Key::kCGImagePropertyExifFlash, Form::plain},
    Field{Group::photo, 0x920A, Key::kCGImagePropertyExifFocalLength, Form::plain},
    Field{Group::photo, 0x927C, Key::kCGImagePropertyExifMakerNote, Form::readable},
    Field{Group::photo, 0x9286, Key::kCGImagePropertyExifUserComment, Form::comment},
    Field{Group::photo, 0x9290, Key::kCGImagePropertyExifSubsecTime, Form::plain},
    Field{Group::photo, 0x9291, Key::kCGImagePropertyExifSubsecTimeOriginal, Form::plain},
    Field{Group::photo, 0x9292, Key::kCGImagePropertyExifSubsecTimeDigitized, Form::plain},
    Field{Group::photo, 0xA001, Key::kCGImagePropertyExifColorSpace, Form::plain},
    Field{Group::photo, 0xA002, Key::kCGImagePropertyExifPixelXDimension, Form::plain},
    Field{Group::photo, 0xA003, Key::kCGImagePropertyExifPixelYDimension, Form::plain},
    Field{Group::photo, 0xA214, Key::kCGImagePropertyExifSubjectLocation, Form::plain},
    Field{Group::photo, 0xA301, Key::kCGImagePropertyExifSceneType, Form::first},
    Field{Group::photo, 0xA402, Key::kCGImagePropertyExifExposureMode, Form::plain},
    Field{Group::photo, 0xA403, Key::kCGImagePropertyExifWhiteBalance, Form::plain},
    Field{Group::photo, 0xA404, Key::kCGImagePropertyExifDigitalZoomRatio, Form::plain},
    Field{Group::photo, 0xA405, Key::kCGImagePropertyExifFocalLenIn35mmFilm, Form::plain},
    Field{Group::photo, 0xA406, Key::kCGImagePropertyExifSceneCaptureType, Form::plain},
    Field{Group::photo, 0xA408, Key::kCGImagePropertyExifContrast, Form::plain},
    Field{Group::photo, 0xA409, Key::kCGImagePropertyExifSaturation, Form::plain},
    Field{Group::photo, 0xA40A, Key::kCGImagePropertyExifSharpness, Form::plain},
    Field{Group::photo, 0xA40B, Key::kCGImagePropertyExifDeviceSettingDescription, Form::readable},
    Field{Group::photo, 0xA40C, Key::kCGImagePropertyExifSubjectDistRange, Form::plain},
    Field{Group::photo, 0xA420, Key::kCGImagePropertyExifImageUniqueID, Form::plain},
    Field{Group::photo, 0xA430, Key::kCGImagePropertyExifCameraOwnerName, Form::plain},
    Field{Group::photo, 0xA431, Key::kCGImagePropertyExifBodySerialNumber, Form::plain},
    Field{Group::photo, 0xA432, Key::kCGImagePropertyExifLensSpecification, Form::plain},
    Field{Group::photo, 0xA433, Key::kCGImagePropertyExifLensMake, Form::plain},
    Field{Group::photo, 0xA434, Key::kCGImagePropertyExifLensModel, Form::plain},
    Field{Group::photo, 0xA435, Key::kCGImagePropertyExifLensSerialNumber, Form::plain},
    Field{Group::photo, 0xA500, Key::kCGImagePropertyExifGamma, Form::plain},
    Field{Group::photo, 0x829A, Key::kCGImagePropertyExifExposureTime, Form::plain},
    Field{Group::photo, 0x829D, Key::kCGImagePropertyExifFNumber, Form::plain},
    Field{Group::photo, 0x8822, Key::kCGImagePropertyExifExposureProgram, Form::plain},
    Field{Group::photo, 0x9201, Key::kCGImagePropertyExifShutterSpeedValue, Form::plain},
    Field{Group::photo, 0x9202, Key::kCGImagePropertyExifApertureValue, Form::plain},
    Field{Group::photo, 0x9203, Key::kCGImagePropertyExifBrightnessValue, Form::plain},
    Field{Group::photo, 0x8827, Key::kCGImagePropertyExifISOSpeedRatings, Form::first},
    Field{Group::photo, 0x8833, Key::kCGImagePropertyExifISOSpeed, Form::plain},
    Field{Group::photo, 0x9000, Key::kCGImagePropertyExifVersion, Form::version},
    Field{Group::gps, 0x0000, Key::kCGImagePropertyGPSVersion, Form::dotted},
    Field{Group::gps, 0x0001, Key::kCGImagePropertyGPSLatitudeRef, Form::plain},
    Field{Group::gps, 0x0002, Key::kCGImagePropertyGPSLatitude, Form::degrees},
    Field{Group::gps, 0x0003, Key::kCGImagePropertyGPSLongitudeRef, Form::plain},
    Field{Group::gps, 0x0004, Key::kCGImagePropertyGPSLongitude, Form::degrees},
    Field{Group::gps, 0x0005, Key::kCGImagePropertyGPSAltitudeRef, Form::plain},
    Field{Group::gps, 0x0006, Key::kCGImagePropertyGPSAltitude, Form::plain},
    Field{Group::gps, 0x0007, Key::kCGImagePropertyGPSTimeStamp, Form::time},
    Field{Group::gps, 0x0008, Key::kCGImagePropertyGPSSatellites, Form::plain},
    Field{Group::gps, 0x0009, Key::kCGImagePropertyGPSStatus, Form::plain},
    Field{Group::gps, 0x000A, Key::kCGImagePropertyGPSMeasureMode, Form::plain},
    Field{Group::gps, 0x000B, Key::kCGImagePropertyGPSDOP, Form::plain},
    Field{Group::gps, 0x000C, Key::kCGImagePropertyGPSSpeedRef, Form::plain},
    Field{Group::gps, 0x000D, Key::kCGImagePropertyGPSSpeed, Form::plain},
    Field{Group::gps, 0x000E, Key::kCGImagePropertyGPSTrackRef, Form::plain},
    Field{Group::gps, 0x000F, Key::kCGImagePropertyGPSTrack, Form::plain},
    Field{Group::gps, 0x0010, Key::kCGImagePropertyGPSImgDirectionRef, Form::plain},
    Field{Group::gps, 0x0011, Key::kCGImagePropertyGPSImgDirection, Form::plain},
    Field{Group::gps, 0x0012, Key::kCGImagePropertyGPSMapDatum, Form::plain},
    Field{Group::gps, 0x0013, Key::kCGImagePropertyGPSDestLatitudeRef, Form::plain},
    Field{Group::gps, 0x0014, Key::kCGImagePropertyGPSDestLatitude, Form::degrees},
    Field{Group::gps, 0x0015, Key::kCGImagePropertyGPSDestLongitudeRef, Form::plain},
    Field{Group::gps, 0x0016, Key::kCGImagePropertyGPSDestLongitude, Form::degrees},
    Field{Group::gps, 0x0017, Key::kCGImagePropertyGPSDestBearingRef, Form::plain},
    Field{Group::gps, 0x0018, Key::kCGImagePropertyGPSDestBearing, Form::plain},
    Field{Group::gps, 0x0019, Key::kCGImagePropertyGPSDestDistanceRef, Form::plain},
    Field{Group::gps, 0x001A, Key::kCGImagePropertyGPSDestDistance, Form::plain},
    Field{Group::gps, 0x001B, Key::kCGImagePropertyGPSProcessingMethod, Form::comment},
    Field{Group::gps, 0x001C, Key::kCGImagePropertyGPSAreaInformation, Form::comment},
    Field{Group::gps, 0x001D, Key::kCGImagePropertyGPSDateStamp, Form::plain},
    Field{Group::gps, 0x001E, Key::kCGImagePropertyGPSDifferental, Form::plain},
    Field{Group::gps, 0x001F, Key::kCGImagePropertyGPSHPositioningError, Form::plain},
    Field{Group::image, 0x010E, Key::kCGImagePropertyTIFFImageDescription, Form::plain},
    Field{Group::image, 0x0132, Key::kCGImagePropertyTIFFDateTime, Form::plain},
    Field{Group::image, 0x013B, Key::kCGImagePropertyTIFFArtist, Form::plain},
    Field{Group::image, 0x8298, Key::kCGImagePropertyTIFFCopyright, Form::plain},
    Field{Group::image, 0x9C9B, Key::kCGImagePropertyTIFFXPTitle, Form::utf16},
    Field{Group::image, 0x9C9C, Key::kCGImagePropertyTIFFXPComment, Form::utf16},
    Field{Group::image, 0x9C9D, Key::kCGImagePropertyTIFFXPAuthor, Form::utf16},
    Field{Group::image, 0x9C9E, Key::kCGImagePropertyTIFFXPKeywords, Form::utf16},
    Field{Group::photo, 0x9010, Key::kCGImagePropertyExifOffsetTime, Form::plain},
    Field{Group::photo, 0x9011, Key::kCGImagePropertyExifOffsetTimeOriginal, Form::plain},
    Field{Group::photo, 0x9012, Key::kCGImagePropertyExifOffsetTimeDigitized, Form::plain},
    // What some raw files have in place of the above.
    Field{Group::panasonic, 0x010F, Key::kCGImagePropertyTIFFMake, Form::plain},
    Field{Group::panasonic, 0x0110, Key::kCGImagePropertyTIFFModel, Form::plain},
};

OptionalProperty propertyOf(const Exiv2::Value& value, Form form, Exiv2::ByteOrder order) {
    switch (form) {
        case Form::plain:
            return plainProperty(value);
        case Form::first:
            return firstNumber(value);
        case Form::version:
            return versionText(rawBytes(value, order));
        case Form::dotted:
            return dottedNumbers(value);
        case Form::degrees:
            return decimalDegrees(value);
        case Form::time:
            return timeText(value);
        case Form::comment:
            return commentText(rawBytes(value, order), order);
        case Form::utf16:
            return textProperty(decodedText(rawBytes(value, order), Charset::utf16LittleEndian));
        case Form::readable:
            return readableText(rawBytes(value, order));
    }
    return std::nullopt;
}

std::optional<Group> groupOf(const Exiv2::Exifdatum& datum) {
    const std::string name = datum.groupName();
    const auto found = std::find_if(groups.begin(), groups.end(),
                                    [&name](const auto& group) { return group.first == name; });
    if (found == groups.end()) return std::nullopt;
    return found->second;
}

constexpr std::uint32_t placeOf(Group group, std::uint16_t tag) {
    return static_cast<std::uint32_t>(group) << 16U | tag;
}

const Field* fieldOf(Group group, std::uint16_t tag) {
    static const auto* const byPlace = [] {
        auto* const map = new std::map<std::uint32_t, const Field*>;
        for (const Field& field : fields) map->emplace(placeOf(field.group, field.tag), &field);
        return map;
    }();
    const auto found = byPlace->find(placeOf(group, tag));
    return found != byPlace->end() ? found->second : nullptr;
}

void addProperty(platform::PropertyDictionary& properties, const Field& field,
                 const Exiv2::Exifdatum& datum, Exiv2::ByteOrder order) {
    const auto key = static_cast<platform::PropertyKey>(field.key);
    if (properties.contains(key)) return;
    if (auto property = propertyOf(datum.value(), field.form, order)) {
        properties.emplace(key, *std::move(property));
    }
}

}  // namespace

void addExifProperties(platform::PropertyDictionary& properties, const Exiv2::ExifData& exif,
                       Exiv2::ByteOrder order) {
    for (const Exiv2::Exifdatum& datum : exif) {
        const auto group = groupOf(datum);
        const Field* const field = group ? fieldOf(*group, datum.tag()) : nullptr;
        if (field != nullptr) addProperty(properties, *field, datum, order);
    }
    // TIFF/EP, and with it raw files, keeps fields of the photo in the first directory.
    for (const Exiv2::Exifdatum& datum : exif) {
        if (groupOf(datum) != Group::image) continue;
        const Field* const field = fieldOf(Group::photo, datum.tag());
        if (field != nullptr) addProperty(properties, *field, datum, order);
    }
}

}  // namespace marquell::helpers
