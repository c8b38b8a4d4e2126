// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "helpers/common/Input.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Makes the libraries ready, as far as they load files or code later. Once, before readImage.
void prepareImageReader();

/// Whether a small image of its own is read right: shows that the libraries work in this process.
bool readsSampleImage();

/// All that a file says of the (first) image in it, by platform::ImagePropertyKey. `extension` is
/// that of its name (lower case, without the dot). Absent if the content is of no kind that is
/// read. Not for two threads at once: the libraries aren't. Throws what the standard library throws
/// when memory runs out.
std::optional<platform::PropertyDictionary> readImage(Input& input, std::string_view extension);

}  // namespace marquell::helpers
