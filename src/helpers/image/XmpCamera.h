// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/image/XmpValues.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds what XMP says of the camera, the place and the moments, by the keys of the EXIF fields that
/// it stands for with platform::xmpKeys added.
void addXmpCamera(platform::PropertyDictionary& properties, const XmpValues& values);

}  // namespace marquell::helpers
