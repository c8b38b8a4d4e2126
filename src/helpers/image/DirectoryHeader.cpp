// SPDX-License-Identifier: GPL-3.0-or-later
#include <map>
#include <string>
#include <utility>

#include "helpers/image/ExifReader.h"
#include "helpers/image/ExifValue.h"
#include "helpers/image/TiffDirectory.h"

namespace marquell::helpers {
namespace {

std::map<std::string, TiffDirectory> directoriesOf(const Exiv2::ExifData& exif) {
    std::map<std::string, TiffDirectory> directories;
    for (const Exiv2::Exifdatum& datum : exif) {
        std::string group = datum.groupName();
        if (group == "Image" || group.starts_with("SubImage")) {
            directories[std::move(group)].take(datum.tag(), component(datum.value(), 0));
        }
    }
    return directories;
}

/// The number of a field, 0 if it has none.
double numberOf(const Exiv2::ExifData& exif, const char* field) {
    const auto found = exif.findKey(Exiv2::ExifKey(field));
    return found != exif.end() ? component(found->value(), 0).value_or(0) : 0;
}

/// Of a raw file of Panasonic: its directory has the borders of the image on the sensor. (What the
/// library calls width and height are the right and the bottom one.)
TiffDirectory panasonicDirectory(const Exiv2::ExifData& exif) {
    TiffDirectory directory;
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
    header.pixelWidth = wholeNumber(numberOf(exif, "Exif.Photo.PixelXDimension"));
    header.pixelHeight = wholeNumber(numberOf(exif, "Exif.Photo.PixelYDimension"));
    return header;
}

ImageHeader directoryHeader(const Exiv2::ExifData& exif) {
    auto directories = directoriesOf(exif);
    const TiffDirectory panasonic = panasonicDirectory(exif);
    if (panasonic.width > 0) directories["PanasonicRaw"] = panasonic;
    const TiffDirectory* main = nullptr;
    for (const auto& [group, directory] : directories) {
        if (!directory.isMainImage() || directory.area() <= 0) continue;
        if (main == nullptr || directory.area() > main->area()) main = &directory;
    }
    ImageHeader header;
    if (main != nullptr) main->describeImage(header);
    // Programs read the resolution where the standard wants it.
    const auto first = directories.find("Image");
    if (first != directories.end()) first->second.describeResolution(header);
    return header;
}

}  // namespace marquell::helpers
