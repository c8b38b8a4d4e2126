// SPDX-License-Identifier: GPL-3.0-or-later
#include <lcms2.h>

#include <string_view>
#include <utility>
#include <vector>

#include "helpers/image/ImageHeader.h"
#include "platform/Utf8.h"

namespace marquell::helpers {
namespace {

using WideText = std::vector<wchar_t>;

constexpr std::size_t maximumNameUnits = 4096;

/// The description as the library gives it.
WideText wideDescription(void* handle) {
    WideText text;
    const auto describe = [handle](wchar_t* buffer, std::size_t bytes) {
        return cmsGetProfileInfo(handle, cmsInfoDescription, "en", "US", buffer,
                                 static_cast<cmsUInt32Number>(bytes));
    };
    const std::size_t units = describe(nullptr, 0) / sizeof(wchar_t);
    if (units > 0 && units <= maximumNameUnits) {
        text.resize(units);
        describe(text.data(), units * sizeof(wchar_t));
        text.pop_back();  // the NUL at the end
    }
    return text;
}

/// A unit as a character: bytes of old profiles come with their sign.
char32_t characterOf(wchar_t unit) {
    const auto character = static_cast<char32_t>(unit);
    if (character > 0x10FFFF) return character & 0xFF;
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return isSurrogate ? U'\uFFFD' : character;
}

bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string nameOf(const WideText& text) {
    std::string name;
    // The library counts UTF-16 units, but puts characters there. After one that took two units
    // there is one place less in use at the end, and what stands there is left over from other
    // memory.
    std::size_t used = text.size();
    for (std::size_t index = 0; index < used; ++index) {
        const char32_t character = characterOf(text[index]);
        if (character > 0xFFFF && used > index + 1) --used;
        if (!isControl(character)) name += platform::utf8Text(character);
    }
    return trimmed(name);
}

std::string_view modelOf(void* handle) {
    switch (cmsGetColorSpace(handle)) {
        case cmsSigRgbData:
            return "RGB";
        case cmsSigGrayData:
            return "Gray";
        case cmsSigCmykData:
            return "CMYK";
        case cmsSigLabData:
            return "Lab";
        default:
            return {};
    }
}

ProfileDescription described(const std::string& profile) {
    // Broken profiles are common and no news.
    cmsSetLogErrorHandler([](cmsContext, cmsUInt32Number, const char*) {});
    void* const handle =
        cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size()));
    if (handle == nullptr) return {};
    ProfileDescription description = {nameOf(wideDescription(handle)), modelOf(handle)};
    cmsCloseProfile(handle);
    return description;
}

}  // namespace

ProfileDescription describeColorProfile(const std::string& profile) {
    if (profile.empty()) return {};
    // The photos of a folder mostly share one profile.
    struct Known {
        std::string profile;
        ProfileDescription description;
    };
    thread_local Known last;
    if (last.profile != profile) last = {profile, described(profile)};
    return last.description;
}

}  // namespace marquell::helpers
