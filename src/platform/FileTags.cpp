// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileTags.h"

#include <cerrno>
#include <optional>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/ReadFailures.h"

namespace marquell::platform {
namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::vector<std::string> splitAtCommas(std::string_view list) {
    std::vector<std::string> names;
    for (;;) {
        const std::size_t comma = list.find(',');
        const std::string_view name = trimmed(list.substr(0, comma));
        if (!name.empty()) names.emplace_back(name);
        if (comma == std::string_view::npos) return names;
        list.remove_prefix(comma + 1);
    }
}

/// Whether a refused read means more than that there are no tags: some kinds of files and file
/// systems have none, and a link that leads nowhere or in circles has no file to ask.
bool isFailure(const std::string& path, int error) {
    if (error == ENODATA || error == EOPNOTSUPP || error == EPERM) return false;
    int entryError = 0;
    return (error != ENOENT && error != ELOOP) || !entryExists(path, entryError);
}

}  // namespace

std::vector<std::string> fileTags(const std::string& path) {
    int error = 0;
    const std::optional<std::string> value = extendedAttribute(path, "user.xdg.tags", error);
    if (value) return splitAtCommas(*value);
    if (isFailure(path, error)) reportReadFailure(path, error);
    return {};
}

}  // namespace marquell::platform
