// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "helpers/common/Input.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// Makes the libraries ready, as far as they load files or code later. Once, before the readers.
void prepareStreamReaders();

/// Whether small samples of its own are read right: shows that the libraries work in this process.
bool readsSampleStreams();

// The attributes of files of one type each, by platform::IndexAttribute; absent if the content is
// of another type. `extension` is that of the name, lower case, without the dot. Not for two
// threads at once.
std::optional<platform::PropertyDictionary> streamIndex(Input& input, std::string_view extension);
std::optional<platform::PropertyDictionary> pdfIndex(Input& input);

}  // namespace marquell::helpers
