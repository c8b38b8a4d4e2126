// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exiv2/exiv2.hpp>

#include "helpers/image/ImageHeader.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds what the EXIF, GPS and TIFF directories say. `order` is theirs.
void addExifProperties(platform::PropertyDictionary& properties, const Exiv2::ExifData& exif,
                       Exiv2::ByteOrder order);

/// Size, resolution and depth as the directories of a file have them. In a file that is built of
/// directories, those of its main image, be it that of the first directory or of one below it.
ImageHeader directoryHeader(const Exiv2::ExifData& exif);

/// The size that the camera gave the photo, of raw files whose directories describe other things.
ImageHeader photoHeader(const Exiv2::ExifData& exif);

}  // namespace marquell::helpers
