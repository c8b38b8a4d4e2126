// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exiv2/exiv2.hpp>

#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds the fields of the IPTC record that XMP has and `properties` lacks: those of IPTC Core that
/// took the place of IIM fields, and those that IIM never had. With them, as addXmpCamera does,
/// what XMP has in place of EXIF fields.
void addXmpProperties(platform::PropertyDictionary& properties, const Exiv2::XmpData& xmp);

}  // namespace marquell::helpers
