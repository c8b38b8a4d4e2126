// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <string_view>

#include "platform/HelperPool.h"
#include "platform/Path.h"

namespace marquell::platform {
namespace {

/// Of the running program; empty where there is no /proc.
std::string programFolder() {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink("/proc/self/exe", target.data(), target.size());
    if (length <= 0) return "";
    const std::string_view path(target.data(), static_cast<std::size_t>(length));
    return std::string(deletingLastPathComponent(path));
}

bool isProgram(const std::string& path) {
    struct ::stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string helperProgramPath(const std::string& name) {
    const std::string folder = programFolder();
    std::string beside = joinPath(folder, name);
    if (isProgram(beside)) return beside;
    // As the build installs it, seen from the folder of commands.
    return absolutePath(joinPath(MARQUELL_HELPER_FOLDER, name), folder);
}

}  // namespace marquell::platform
