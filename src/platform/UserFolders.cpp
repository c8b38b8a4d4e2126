// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UserFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <optional>

namespace marquell::platform {
namespace {

std::optional<std::string> absoluteVariable(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value != '/') return std::nullopt;
    return value;
}

std::string homeFolder() {
    if (const auto home = absoluteVariable("HOME")) return *home;
    passwd entry = {};
    passwd* found = nullptr;
    std::array<char, 16384> texts{};
    ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    // Without an entry: the name that Debian has for a home that doesn't exist.
    return found != nullptr ? entry.pw_dir : "/nonexistent";
}

}  // namespace

std::string configurationFolder() {
    if (const auto folder = absoluteVariable("XDG_CONFIG_HOME")) return *folder;
    return homeFolder() + "/.config";
}

int makeFolder(const std::string& path) {
    constexpr mode_t mode = 0700;
    if (::mkdir(path.c_str(), mode) == 0 || errno == EEXIST) return 0;
    const std::size_t slash = path.rfind('/');
    if (errno != ENOENT || slash == std::string::npos || slash == 0) return errno;
    if (const int error = makeFolder(path.substr(0, slash)); error != 0) return error;
    return ::mkdir(path.c_str(), mode) == 0 || errno == EEXIST ? 0 : errno;
}

}  // namespace marquell::platform
