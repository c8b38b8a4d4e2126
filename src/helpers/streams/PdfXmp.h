// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds what an XMP packet says of a document to the attributes (platform::IndexAttribute) that are
/// not set yet. Nothing of a packet that is longer than 1 MB or no XML.
void addPdfXmp(platform::PropertyDictionary& index, std::string_view packet);

}  // namespace marquell::helpers
