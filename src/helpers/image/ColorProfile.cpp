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

/// The description as the library gives it, without the NUL at the end.
WideText wideDescription(const std::string& profile) {
    // Broken profiles are common and no news.
    cmsSetLogErrorHandler([](cmsContext, cmsUInt32Number, const char*) {});
    WideText text;
    void* const handle =
        cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size()));
    if (handle == nullptr) return text;
    const auto describe = [handle](wchar_t* buffer, std::size_t bytes) {
        return cmsGetProfileInfo(handle, cmsInfoDescription, "en", "US", buffer,
                                 static_cast<cmsUInt32Number>(bytes));
    };
    const std::size_t units = describe(nullptr, 0) / sizeof(wchar_t);
    if (units > 0 && units <= maximumNameUnits) {
        text.resize(units);
        describe(text.data(), units * sizeof(wchar_t));
        while (!text.empty() && text.back() == L'\0') text.pop_back();
    }
    cmsCloseProfile(handle);
    return text;
}

bool isSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

/// The character at `index`, which is moved behind it. The library hands on UTF-16 units one by
/// one, and bytes of old profiles with their sign.
char32_t takeCharacter(const WideText& text, std::size_t& index) {
    const auto unit = static_cast<char32_t>(text[index++]);
    if (unit > 0x10FFFF) return unit & 0xFF;
    if (!isSurrogate(unit)) return unit;
    const auto next = index < text.size() ? static_cast<char32_t>(text[index]) : U'\0';
    const bool isPair = unit < 0xDC00 && next >= 0xDC00 && isSurrogate(next);
    if (!isPair) return U'\uFFFD';
    ++index;
    return 0x10000 + ((unit & 0x3FF) << 10) + (next & 0x3FF);
}

bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string nameOf(const std::string& profile) {
    const WideText text = wideDescription(profile);
    std::string name;
    for (std::size_t index = 0; index < text.size();) {
        const char32_t character = takeCharacter(text, index);
        if (!isControl(character)) name += platform::utf8Text(character);
    }
    return trimmed(name);
}

}  // namespace

std::string colorProfileName(const std::string& profile) {
    if (profile.empty()) return {};
    // The photos of a folder mostly share one profile.
    struct Known {
        std::string profile;
        std::string name;
    };
    thread_local Known last;
    if (last.profile != profile) last = {profile, nameOf(profile)};
    return last.name;
}

}  // namespace marquell::helpers
