// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace marquell::platform {
namespace {

bool namesSameFolder(const char* path, const char* other) {
    struct stat a = {};
    struct stat b = {};
    return ::stat(path, &a) == 0 && ::stat(other, &b) == 0 && a.st_dev == b.st_dev &&
           a.st_ino == b.st_ino;
}

void appendComponents(std::vector<std::string_view>& components, std::string_view path) {
    while (!path.empty()) {
        const std::size_t slash = path.find('/');
        const std::string_view component = path.substr(0, slash);
        path.remove_prefix(slash == std::string_view::npos ? path.size() : slash + 1);
        if (component.empty() || component == ".") continue;
        if (component != "..") {
            components.push_back(component);
        } else if (!components.empty()) {
            components.pop_back();
        }
    }
}

}  // namespace

std::string_view lastPathComponent(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos || path.size() == 1) return path;
    return path.substr(slash + 1);
}

std::string_view deletingLastPathComponent(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return {};
    return path.substr(0, slash == 0 ? 1 : slash);
}

NameParts splitExtension(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return {name, {}};
    return {name.substr(0, dot), name.substr(dot + 1)};
}

std::string absolutePath(std::string_view path, std::string_view base) {
    if (path.empty()) return {};
    std::vector<std::string_view> components;
    if (path.front() != '/') appendComponents(components, base);
    appendComponents(components, path);
    std::string result;
    for (const std::string_view component : components) result.append("/").append(component);
    return result.empty() ? "/" : result;
}

std::string currentFolder() {
    const char* logical = std::getenv("PWD");
    if (logical != nullptr && logical[0] == '/') {
        // Resolved first: ".." behind a link leads elsewhere for the kernel than in the text.
        std::string resolved = absolutePath(logical, "/");
        if (namesSameFolder(resolved.c_str(), ".")) return resolved;
    }
    const std::unique_ptr<char, decltype(&std::free)> physical(::getcwd(nullptr, 0), &std::free);
    return physical != nullptr && physical.get()[0] == '/' ? physical.get() : "";
}

std::string joinPath(std::string_view folder, std::string_view relative) {
    std::string path;
    path.reserve(folder.size() + relative.size() + 1);
    path.append(folder);
    if (folder != "/") path.push_back('/');
    path.append(relative);
    return path;
}

}  // namespace marquell::platform
