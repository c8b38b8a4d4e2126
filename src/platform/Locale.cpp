// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Locale.h"

#include <unicode/dcfmtsym.h>

#include <array>
#include <cstdlib>

#include "platform/IcuLocale.h"

namespace marquell::platform {

std::string localeName(const char* category) {
    const std::array<const char*, 3> names = {"LC_ALL", category, "LANG"};
    for (const char* name : names) {
        const char* value = std::getenv(name);
        if (value != nullptr && value[0] != 0) return value;
    }
    return "C";
}

icu::Locale icuLocale(const char* category) {
    const std::string name = localeName(category);
    const std::string language = name.substr(0, name.find_first_of(".@"));
    if (language == "C" || language == "POSIX") return icu::Locale("en_US_POSIX");
    const icu::Locale locale = icu::Locale::createCanonical(name.c_str());
    // ICU crashes on a locale that it could make nothing of.
    return locale.isBogus() ? icu::Locale("en_US_POSIX") : locale;
}

std::string decimalSeparator() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(icuLocale("LC_NUMERIC"), status);
    if (U_FAILURE(status)) return ".";
    std::string separator;
    symbols.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol)
        .toUTF8String(separator);
    return separator;
}

}  // namespace marquell::platform
