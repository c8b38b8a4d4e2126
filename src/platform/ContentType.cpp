// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ContentType.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/Path.h"
#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

/// What the system's table lacks, or takes for something else.
constexpr std::array<std::pair<std::string_view, std::string_view>, 16> ownTypes = {{
    {"avci", "image/avci"},
    {"bwf", "audio/x-wav"},
    {"caf", "audio/x-caf"},
    {"cdda", "audio/x-aiff"},
    {"eac3", "audio/eac3"},
    {"m2v", "video/mpeg"},
    {"m4p", "audio/mp4"},
    {"mlp", "audio/vnd.dolby.mlp"},
    {"rf64", "audio/x-wav"},
    {"sdv", "video/mp4"},
    {"spx", "audio/x-speex"},
    {"tak", "audio/x-tak"},
    {"w64", "audio/x-w64"},
    {"wave", "audio/x-wav"},
    {"weba", "audio/webm"},
    {"wtv", "video/x-wtv"},
}};

/// The library holds a lock of its own over its table, which is one that sanitizers don't know.
std::mutex& tableMutex() {
    static auto* const mutex = new std::mutex;  // threads may outlive the end of main
    return *mutex;
}

/// `name` or `start` may be empty, but not both.
std::string guessed(const std::string& name, std::string_view start) {
    const std::lock_guard lock(tableMutex());
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

bool isMedia(std::string_view type) {
    return majorType(type) == "audio" || majorType(type) == "video";
}

bool isA(const std::string& type, const std::string& other) {
    const std::lock_guard lock(tableMutex());
    return g_content_type_is_a(type.c_str(), other.c_str()) != FALSE;
}

/// Types told by signatures that other content hardly has, beside images, sound and video.
constexpr std::array<std::string_view, 5> unmistakableTypes = {
    "application/pdf", "application/x-executable", "application/x-pie-executable",
    "application/x-sharedlib", "application/vnd.microsoft.portable-executable"};

bool isUnmistakable(const std::string& type) {
    return majorType(type) == "image" || isMedia(type) ||
           std::ranges::find(unmistakableTypes, type) != unmistakableTypes.end();
}

/// Containers of which the name says what is in them.
enum class Container { none, isoMedia, matroska, ogg, mpeg };

constexpr std::array<std::pair<std::string_view, Container>, 18> containers = {{
    {"audio/mp4", Container::isoMedia},
    {"audio/x-m4b", Container::isoMedia},
    {"audio/x-m4r", Container::isoMedia},
    {"audio/3gpp", Container::isoMedia},
    {"audio/3gpp2", Container::isoMedia},
    {"video/mp4", Container::isoMedia},
    {"video/quicktime", Container::isoMedia},
    {"video/3gpp", Container::isoMedia},
    {"video/3gpp2", Container::isoMedia},
    {"audio/x-matroska", Container::matroska},
    {"audio/webm", Container::matroska},
    {"video/x-matroska", Container::matroska},
    {"video/webm", Container::matroska},
    {"audio/ogg", Container::ogg},
    {"audio/x-speex", Container::ogg},
    {"video/ogg", Container::ogg},
    {"video/mp2t", Container::mpeg},
    {"video/mpeg", Container::mpeg},
}};

Container containerOf(std::string_view type) {
    const auto* const row =
        std::ranges::find(containers, type, [](const auto& known) { return known.first; });
    return row == containers.end() ? Container::none : row->second;
}

/// Sound that has no signature but a tag in front, or a pattern of a few bits, as others do.
constexpr std::array<std::string_view, 4> weakTypes = {"audio/mpeg", "audio/mp2", "audio/aac",
                                                       "audio/ac3"};

/// Whether a name of that type is right of content that is told to be of another.
bool isNameRight(const std::string& type, const std::string& content) {
    if (!isUnmistakable(content) || isA(type, content)) return true;
    if (type == "application/illustrator") return true;  // is PDF inside
    if (!isMedia(type)) return false;
    return std::ranges::find(weakTypes, content) != weakTypes.end() ||
           (containerOf(type) != Container::none && containerOf(type) == containerOf(content));
}

/// The type of the content, as far as it is told beyond doubt; else the one by name.
std::string typeByContent(std::string_view start, const std::string& byName) {
    std::string content = guessed("", start);
    // Its signature may stand anywhere in front, and so in a text about it.
    if (content == "application/pdf" && !start.starts_with("%PDF-")) return byName;
    return content;
}

}  // namespace

ContentType contentType(std::string_view name, std::string_view start) {
    const std::string text = displayText(name);
    std::string type = typeByName(text, start);
    if (start.empty()) return {type, type};
    std::string content = typeByContent(start, type);
    if (!isNameRight(type, content)) return {content, content};
    return {type, isMedia(content) || content == "application/pdf" ? content : type};
}

}  // namespace marquell::platform
