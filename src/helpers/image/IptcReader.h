// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exiv2/exiv2.hpp>

#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds what the IIM record says: texts as they stand, a list where a field is repeated.
void addIptcProperties(platform::PropertyDictionary& properties, const Exiv2::IptcData& iptc);

}  // namespace marquell::helpers
