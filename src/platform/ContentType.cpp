// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ContentType.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "platform/Path.h"
#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

/// What the system's table lacks.
constexpr std::array<std::pair<std::string_view, std::string_view>, 7> ownTypes = {{
    {"avci", "image/avci"},
    {"bwf", "audio/x-wav"},
    {"caf", "audio/x-caf"},
    {"cdda", "audio/x-aiff"},
    {"eac3", "audio/eac3"},
    {"sdv", "video/mp4"},
    {"wave", "audio/x-wav"},
}};

/// `name` or `start` may be empty, but not both.
std::string guessed(const std::string& name, std::string_view start) {
    const std::unique_ptr<char, decltype(&g_free)> type(
        g_content_type_guess(name.empty() ? nullptr : name.c_str(),
                             reinterpret_cast<const guchar*>(start.data()), start.size(), nullptr),
        &g_free);
    return type.get();
}

std::string ownType(std::string_view name) {
    std::string extension(splitExtension(name).extension);
    std::transform(extension.begin(), extension.end(), extension.begin(), g_ascii_tolower);
    const auto* const row = std::find_if(ownTypes.begin(), ownTypes.end(),
                                         [&](const auto& own) { return own.first == extension; });
    return row == ownTypes.end() ? std::string() : std::string(row->second);
}

std::string typeByName(const std::string& name, std::string_view start) {
    std::string own = ownType(name);
    return own.empty() ? guessed(name, start) : own;
}

std::string_view majorType(std::string_view type) { return type.substr(0, type.find('/')); }

bool isMedia(std::string_view major) { return major == "audio" || major == "video"; }

bool isA(const std::string& type, const std::string& other) {
    return g_content_type_is_a(type.c_str(), other.c_str()) != FALSE;
}

/// Whether content of this type is told by signatures that other content hardly has.
bool isUnmistakable(const std::string& type) {
    const std::string_view major = majorType(type);
    return major == "image" || isMedia(major) || type == "application/pdf";
}

}  // namespace

ContentType contentType(std::string_view name, std::string_view start) {
    const std::string text = displayText(name);
    if (start.empty()) {
        std::string type = typeByName(text, start);
        return {type, type};
    }
    std::string type = typeByName(text, start);
    std::string content = guessed("", start);
    if (!isUnmistakable(content) || isA(type, content)) return {type, type};
    const std::string_view major = majorType(type);
    const bool isOneContainer = isMedia(major) && isMedia(majorType(content));
    const bool isForm = major == "application" && majorType(content) == major;
    if (isOneContainer || isForm) return {type, content};
    return {content, content};
}

}  // namespace marquell::platform
