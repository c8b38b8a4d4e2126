// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/image/ExifReader.h"
#include "helpers/image/ExifValue.h"

namespace marquell::helpers {
namespace {

/// What one directory says of its image.
struct Directory {
    double subfileType = 0;
    double width = 0;
    double height = 0;
    double depth = 0;
    std::optional<double> resolutionX;
    std::optional<double> resolutionY;
    double resolutionUnit = inches;

    static constexpr double inches = 2;
    static constexpr double centimetres = 3;

    /// Not a smaller version of another image or a part of it.
    bool isMainImage() const { return static_cast<std::int64_t>(subfileType) % 2 == 0; }
    double area() const { return width * height; }
};

void take(Directory& directory, const Exiv2::Exifdatum& datum) {
    enum Tag : std::uint16_t {
        newSubfileType = 0x00FE,
        imageWidth = 0x0100,
        imageLength = 0x0101,
        bitsPerSample = 0x0102,
        xResolution = 0x011A,
        yResolution = 0x011B,
        resolutionUnit = 0x0128,
    };
    const auto number = [&datum] { return component(datum.value(), 0); };
    switch (datum.tag()) {
        case newSubfileType:
            directory.subfileType = number().value_or(0);
            break;
        case imageWidth:
            directory.width = number().value_or(0);
            break;
        case imageLength:
            directory.height = number().value_or(0);
            break;
        case bitsPerSample:
            directory.depth = number().value_or(0);
            break;
        case xResolution:
            directory.resolutionX = number();
            break;
        case yResolution:
            directory.resolutionY = number();
            break;
        case resolutionUnit:
            directory.resolutionUnit = number().value_or(Directory::inches);
            break;
        default:
            break;
    }
}

std::map<std::string, Directory> directoriesOf(const Exiv2::ExifData& exif) {
    std::map<std::string, Directory> directories;
    for (const Exiv2::Exifdatum& datum : exif) {
        std::string group = datum.groupName();
        if (group == "Image" || group.starts_with("SubImage")) {
            take(directories[std::move(group)], datum);
        }
    }
    return directories;
}

/// A whole number that fits; absent for 0 and nonsense.
std::optional<std::uint32_t> whole(double number) {
    if (!(number >= 1) || number > UINT32_MAX) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

std::optional<double> dotsPerInch(const std::optional<double>& resolution, double unit) {
    constexpr double centimetresPerInch = 2.54;
    if (!resolution || !(*resolution > 0)) return std::nullopt;
    if (unit == Directory::centimetres) return dpiFromMetric(*resolution, centimetresPerInch);
    if (unit == Directory::inches) return resolution;
    return std::nullopt;
}

/// The number of a field, 0 if it has none.
double numberOf(const Exiv2::ExifData& exif, const char* field) {
    const auto found = exif.findKey(Exiv2::ExifKey(field));
    return found != exif.end() ? component(found->value(), 0).value_or(0) : 0;
}

/// Of a raw file of Panasonic: its directory has the borders of the image on the sensor. (What the
/// library calls width and height are the right and the bottom one.)
Directory panasonicDirectory(const Exiv2::ExifData& exif) {
    Directory directory;
    const auto number = [&exif](const char* field) { return numberOf(exif, field); };
    directory.width =
        number("Exif.PanasonicRaw.ImageWidth") - number("Exif.PanasonicRaw.SensorLeftBorder");
    directory.height =
        number("Exif.PanasonicRaw.ImageHeight") - number("Exif.PanasonicRaw.SensorTopBorder");
    directory.depth = number("Exif.PanasonicRaw.0x000a");
    return directory;
}

}  // namespace

ImageHeader photoHeader(const Exiv2::ExifData& exif) {
    ImageHeader header;
    header.pixelWidth = whole(numberOf(exif, "Exif.Photo.PixelXDimension"));
    header.pixelHeight = whole(numberOf(exif, "Exif.Photo.PixelYDimension"));
    return header;
}

ImageHeader directoryHeader(const Exiv2::ExifData& exif) {
    auto directories = directoriesOf(exif);
    const Directory panasonic = panasonicDirectory(exif);
    if (panasonic.width > 0) directories["PanasonicRaw"] = panasonic;
    const Directory* main = nullptr;
    for (const auto& [group, directory] : directories) {
        if (!directory.isMainImage() || directory.area() <= 0) continue;
        if (main == nullptr || directory.area() > main->area()) main = &directory;
    }
    ImageHeader header;
    if (main != nullptr) {
        header.pixelWidth = whole(main->width);
        header.pixelHeight = whole(main->height);
        header.depth = whole(main->depth);
    }
    // Programs read the resolution where the standard wants it.
    const auto first = directories.find("Image");
    if (first != directories.end()) {
        const Directory& directory = first->second;
        header.dpiWidth = dotsPerInch(directory.resolutionX, directory.resolutionUnit);
        header.dpiHeight = dotsPerInch(directory.resolutionY, directory.resolutionUnit);
    }
    return header;
}

}  // namespace marquell::helpers
