// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Adds what the data sets of an IIM block say: texts as they stand, a list where one is repeated.
void addIptcProperties(platform::PropertyDictionary& properties, std::string_view block);

}  // namespace marquell::helpers
