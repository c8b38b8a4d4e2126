// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::platform {

/// The user's text, in UTF-8, for an English one; the English text itself where none is installed.
/// `context` is the kind of text ("button title"): it tells apart equal texts with different uses,
/// and stands as `msgctxt` in the translation files. The language is the one of the process's
/// locale (setlocale). May be called from any thread.
std::string localized(std::string_view english, const char* context);

/// The same for a text that depends on a count, given in its English forms for one and for several.
std::string localizedPlural(std::string_view one, std::string_view several, std::int64_t count,
                            const char* context);

}  // namespace marquell::platform
