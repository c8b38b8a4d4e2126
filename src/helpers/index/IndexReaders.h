// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "helpers/common/Input.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

// The attributes of files of one type each, by platform::IndexAttribute; absent if the content is
// of another type. `extension` is that of the name, lower case, without the dot.
std::optional<platform::PropertyDictionary> imageIndex(Input& input, std::string_view extension);
std::optional<platform::PropertyDictionary> soundIndex(Input& input, std::string_view extension);

}  // namespace marquell::helpers
