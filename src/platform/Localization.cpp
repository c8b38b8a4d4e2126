// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Localization.h"

#include <libintl.h>

namespace marquell::platform {

namespace {

constexpr char contextEnd = '\004';

/// The domain's name, once gettext knows that it must answer in UTF-8 whatever the locale's
/// codeset.
const char* translationDomain() {
    static const char* const domain = [] {
        constexpr const char* name = "marquell";
        bind_textdomain_codeset(name, "UTF-8");
        return name;
    }();
    return domain;
}

std::string keyOf(std::string_view english, const char* context) {
    std::string key(context);
    key += contextEnd;
    key += english;
    return key;
}

}  // namespace

std::string localized(std::string_view english, const char* context) {
    if (english.empty()) return {};
    const std::string key = keyOf(english, context);
    // Without a translation gettext returns the very pointer that it was given.
    const char* translation = dgettext(translationDomain(), key.c_str());
    return translation == key.c_str() ? std::string(english) : std::string(translation);
}

std::string localizedPlural(std::string_view one, std::string_view several, std::int64_t count,
                            const char* context) {
    const std::string key = keyOf(one, context);
    const std::string others(several);
    const char* translation = dngettext(translationDomain(), key.c_str(), others.c_str(),
                                        static_cast<unsigned long>(count));
    return translation == key.c_str() ? std::string(one) : std::string(translation);
}

}  // namespace marquell::platform
