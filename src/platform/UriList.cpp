// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UriList.h"

#include <gio/gio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <optional>
#include <utility>

namespace marquell::platform {
namespace {

/// As computers and schemes are named: in ASCII, whatever the case.
bool isSame(std::string_view a, std::string_view b) {
    return a.size() == b.size() && g_ascii_strncasecmp(a.data(), b.data(), a.size()) == 0;
}

bool isThisComputer(std::string_view host) {
    if (host.empty() || isSame(host, "localhost")) return true;
    std::array<char, HOST_NAME_MAX + 1> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 && isSame(host, name.data());
}

/// The path behind the scheme, still encoded: "//host/path" or "/path". Absent for other hosts.
std::optional<std::string_view> localPath(std::string_view rest) {
    if (rest.starts_with("//")) {
        const std::size_t slash = std::min(rest.find('/', 2), rest.size());
        if (!isThisComputer(rest.substr(2, slash - 2))) return std::nullopt;
        rest.remove_prefix(slash);
    }
    if (!rest.starts_with('/')) return std::nullopt;
    return rest;
}

/// Absent for an escape that is none, and for bytes that no name can have.
std::optional<char> unescaped(std::string_view digits) {
    unsigned char byte = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, fault] = std::from_chars(digits.data(), end, byte, 16);
    const bool isEscape = digits.size() == 2 && fault == std::errc() && stop == end;
    if (!isEscape || byte == '\0' || byte == '/') return std::nullopt;
    return static_cast<char>(byte);
}

std::optional<std::string> decoded(std::string_view path) {
    std::string bytes;
    for (std::size_t at = 0; at < path.size(); ++at) {
        std::optional<char> byte = path[at];
        if (path[at] == '%') {
            byte = unescaped(path.substr(at + 1, 2));
            at += 2;
        } else if (path[at] == '\0' || path[at] == '?' || path[at] == '#') {
            return std::nullopt;  // a query or a part of a file, which is not what we were given
        }
        if (!byte) return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

std::optional<std::string> pathOf(std::string_view address) {
    constexpr std::string_view scheme = "file:";
    if (!isSame(address.substr(0, scheme.size()), scheme)) return std::nullopt;
    const auto path = localPath(address.substr(scheme.size()));
    return path ? decoded(*path) : std::nullopt;
}

}  // namespace

std::vector<std::string> pathsOfUriList(std::string_view uriList) {
    std::vector<std::string> paths;
    while (!uriList.empty()) {
        // Empty lines, as between CR and LF, and comments are no addresses of files anyway.
        const std::size_t end = std::min(uriList.find_first_of("\r\n"), uriList.size());
        if (auto path = pathOf(uriList.substr(0, end))) paths.push_back(std::move(*path));
        uriList.remove_prefix(std::min(end + 1, uriList.size()));
    }
    return paths;
}

}  // namespace marquell::platform
