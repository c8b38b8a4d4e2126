// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/image/ExifReader.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using Key = platform::ImagePropertyKey;
using platform::PropertyDictionary;
using platform::PropertyValue;
using Texts = std::vector<std::string>;

PropertyDictionary withKey(Key key, PropertyValue value) {
    return {{static_cast<platform::PropertyKey>(key), std::move(value)}};
}

/// The properties of one field, of which the library knows the type.
PropertyDictionary read(const char* field, const std::string& value) {
    Exiv2::ExifData exif;
    exif[field] = value;
    PropertyDictionary properties;
    addExifProperties(properties, exif, Exiv2::littleEndian);
    return properties;
}

/// The same of raw bytes of a type.
PropertyDictionary readBytes(const char* field, Exiv2::TypeId type, std::string_view bytes) {
    const auto value = Exiv2::Value::create(type);
    value->read(reinterpret_cast<const Exiv2::byte*>(bytes.data()), static_cast<long>(bytes.size()),
                Exiv2::littleEndian);
    Exiv2::ExifData exif;
    exif.add(Exiv2::ExifKey(field), value.get());
    PropertyDictionary properties;
    addExifProperties(properties, exif, Exiv2::littleEndian);
    return properties;
}

TEST(ExifReader, MakesOneNumberOfOneAndAListOfTextsOfSeveral) {
    const PropertyDictionary none;
    EXPECT_EQ(read("Exif.Photo.ExposureTime", "1/250"),
              withKey(Key::kCGImagePropertyExifExposureTime, 0.004));
    EXPECT_EQ(read("Exif.Photo.FNumber", "4294967295/4294967294"),
              withKey(Key::kCGImagePropertyExifFNumber, 4294967295.0 / 4294967294.0));
    EXPECT_EQ(read("Exif.Photo.FNumber", "0/0"), none);
    EXPECT_EQ(read("Exif.Photo.FNumber", "1/0"), none);
    EXPECT_EQ(read("Exif.Photo.BrightnessValue", "-3/2"),
              withKey(Key::kCGImagePropertyExifBrightnessValue, -1.5));
    EXPECT_EQ(read("Exif.Photo.ISOSpeedRatings", "200 0"),
              withKey(Key::kCGImagePropertyExifISOSpeedRatings, 200.0));
    EXPECT_EQ(read("Exif.Photo.LensSpecification", "24/1 70/1 14/5 0/0"),
              withKey(Key::kCGImagePropertyExifLensSpecification, Texts{"24", "70", "2.8", "?"}));
    EXPECT_EQ(read("Exif.Photo.LensSpecification", "0/0 0/0 0/0 0/0"), none);
    EXPECT_EQ(read("Exif.Photo.SubjectLocation", "10 20"),
              withKey(Key::kCGImagePropertyExifSubjectLocation, Texts{"10", "20"}));
    // TIFF/EP has fields of the photo in the first directory.
    EXPECT_EQ(read("Exif.Image.FNumber", "28/10"), withKey(Key::kCGImagePropertyExifFNumber, 2.8));
}

TEST(ExifReader, TakesTheSizeOfTheMainImage) {
    Exiv2::ExifData exif;
    const auto directory = [&exif](const std::string& group, std::uint32_t kind,
                                   std::uint32_t width, std::uint16_t depth) {
        exif["Exif." + group + ".NewSubfileType"] = kind;
        exif["Exif." + group + ".ImageWidth"] = width;
        exif["Exif." + group + ".ImageLength"] = width / 2;
        exif["Exif." + group + ".BitsPerSample"] = depth;
    };
    directory("Image", 1, 160, 8);
    directory("SubImage1", 1, 9000, 8);
    directory("SubImage2", 0, 6000, 14);
    exif["Exif.Image.XResolution"] = Exiv2::URational(118, 1);
    exif["Exif.Image.ResolutionUnit"] = std::uint16_t{3};
    const ImageHeader header = directoryHeader(exif);
    EXPECT_EQ(header.pixelWidth, 6000U);
    EXPECT_EQ(header.pixelHeight, 3000U);
    EXPECT_EQ(header.depth, 14U);
    EXPECT_DOUBLE_EQ(header.dpiWidth.value_or(0), 299.72);
    EXPECT_FALSE(header.dpiHeight);
    exif["Exif.PanasonicRaw.SensorTopBorder"] = std::uint16_t{10};
    exif["Exif.PanasonicRaw.SensorLeftBorder"] = std::uint16_t{20};
    exif["Exif.PanasonicRaw.ImageHeight"] = std::uint16_t{5010};
    exif["Exif.PanasonicRaw.ImageWidth"] = std::uint16_t{7020};
    EXPECT_EQ(directoryHeader(exif).pixelWidth, 7000U);
    EXPECT_EQ(directoryHeader(exif).pixelHeight, 5000U);
}

TEST(ExifReader, CombinesDegreesExactly) {
    const auto latitude = [](const std::string& parts) {
        return read("Exif.GPSInfo.GPSLatitude", parts);
    };
    const auto is = [](double degrees) {
        return withKey(Key::kCGImagePropertyGPSLatitude, degrees);
    };
    EXPECT_EQ(latitude("48/1 51/1 2960/100"), is(48.858222222222224));
    // Adding rounded parts would give the neighbour of this one.
    EXPECT_EQ(latitude("34/1 36/1 529378/100000"), is(34.60147049444444));
    EXPECT_EQ(latitude("4294967295/4294967291 4294967295/4294967291 4294967295/4294967291"),
              is(1.0169444453915477));
    EXPECT_EQ(latitude("33/1 0/0 0/0"), is(33));
    EXPECT_EQ(latitude("0/1 0/1 0/1"), is(0));
    EXPECT_EQ(latitude("33/1 5/0 0/1"), PropertyDictionary());
    EXPECT_EQ(latitude("0/0 5/1 0/1"), PropertyDictionary());
}

TEST(ExifReader, WritesVersionsAndTimesAsText) {
    for (const auto& [digits, text] : std::vector<std::pair<std::string, std::string>>{
             {"0230", "2.3"}, {"0231", "2.3.1"}, {"0300", "3.0"}, {"1000", "10.0"}}) {
        EXPECT_EQ(readBytes("Exif.Photo.ExifVersion", Exiv2::undefined, digits),
                  withKey(Key::kCGImagePropertyExifVersion, text));
    }
    EXPECT_EQ(readBytes("Exif.Photo.ExifVersion", Exiv2::undefined, "02"), PropertyDictionary());
    EXPECT_EQ(read("Exif.GPSInfo.GPSVersionID", "2 3 0 0"),
              withKey(Key::kCGImagePropertyGPSVersion, "2.3.0.0"));
    const auto time = [](const std::string& parts) {
        return read("Exif.GPSInfo.GPSTimeStamp", parts);
    };
    EXPECT_EQ(time("1/1 2/1 3/1"), withKey(Key::kCGImagePropertyGPSTimeStamp, "01:02:03"));
    EXPECT_EQ(time("23/1 59/1 607/10"), PropertyDictionary());
    EXPECT_EQ(time("23/1 59/1 35/10"), withKey(Key::kCGImagePropertyGPSTimeStamp, "23:59:03.5"));
}

TEST(ExifReader, DecodesTextsAndLeavesOutWhatIsNone) {
    using Bytes = std::string_view;
    struct Case {
        Bytes bytes;
        const char* text;  ///< null for no value
    };
    for (const Case& row : {
             Case{Bytes("ASCII\0\0\0hello \0\0junk", 20), "hello"},
             Case{Bytes("UNICODE\0G\0r\0\xFC\0", 14), "Gr\u00FC"},
             Case{Bytes("UNICODE\0\0G\0r\0\xFC", 14), "Gr\u00FC"},  // not in the file's order
             Case{Bytes("UNICODE\0\x65\xE5\x67\x2C\x30\xB3", 14), "\u65E5\u672C\u30B3"},
             Case{Bytes("UNICODE\0\x3D\xD8\x00\xDE", 12), "\U0001F600"},
             Case{Bytes("UNICODE\0\x3D\xD8", 10), "\uFFFD"},
             Case{Bytes("JIS\0\0\0\0\0\x1B$BF|K\\\x1B(B", 18), "\u65E5\u672C"},
             Case{Bytes("\0\0\0\0\0\0\0\0caf\xE9", 12), "caf\u00E9"},
             Case{"no code", "no code"},
             Case{Bytes("ASCII\0\0\0      ", 14), nullptr},
             Case{Bytes("\0\0\0\0\0\0\0\0", 8), nullptr},
         }) {
        const auto expected = row.text != nullptr
                                  ? withKey(Key::kCGImagePropertyExifUserComment, row.text)
                                  : PropertyDictionary();
        EXPECT_EQ(readBytes("Exif.Photo.UserComment", Exiv2::undefined, row.bytes), expected)
            << testing::PrintToString(row.bytes);
    }
    const Bytes name("Jos\x80\x07 \xE9\0hidden", 14);
    EXPECT_EQ(readBytes("Exif.Image.Make", Exiv2::asciiString, name),
              withKey(Key::kCGImagePropertyTIFFMake, "Jos\u20AC \u00E9"));
    const char* const setting = "Exif.Photo.DeviceSettingDescription";
    EXPECT_EQ(readBytes(setting, Exiv2::undefined, Bytes("as it is\0\0", 10)),
              withKey(Key::kCGImagePropertyExifDeviceSettingDescription, "as it is"));
    EXPECT_EQ(readBytes(setting, Exiv2::undefined, Bytes("\2\0\1\0\xFF\xD8", 6)),
              PropertyDictionary());
}

}  // namespace
}  // namespace marquell::helpers
