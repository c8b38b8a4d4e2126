// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/locid.h>

namespace marquell::platform {

/// ICU's locale for localeName(category). ICU by itself looks at LC_MESSAGES for everything.
icu::Locale icuLocale(const char* category);

}  // namespace marquell::platform
