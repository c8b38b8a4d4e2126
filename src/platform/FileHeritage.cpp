// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileHeritage.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>

#include "platform/FileSystem.h"

namespace marquell::platform {
namespace {

constexpr const char* accessList = "system.posix_acl_access";

/// Of a file, or of a file system, that has none.
bool meansNoAttribute(int error) { return error == ENODATA || error == EOPNOTSUPP; }

/// Whether the file has no access list, not even one that its folder gives to all that is new.
bool removeAccessList(int file) {
    return ::fremovexattr(file, accessList) == 0 || meansNoAttribute(errno);
}

}  // namespace

int inheritAccess(const std::string& path, const struct stat& old, int file) {
    constexpr uid_t unchanged = static_cast<uid_t>(-1);
    const bool sameGroup = ::fchown(file, unchanged, old.st_gid) == 0;
    const bool sameOwner = ::fchown(file, old.st_uid, unchanged) == 0;
    mode_t kept = sameGroup ? (sameOwner ? 07777 : 0777) : 0707;
    int error = 0;
    const std::optional<std::string> list = extendedAttribute(path, accessList, error);
    // With a list, the group's bits are the most that it gives to anyone, and not the group's.
    if (!removeAccessList(file) || list || !meansNoAttribute(error)) kept &= ~mode_t{070};
    if (::fchmod(file, old.st_mode & kept) != 0) return errno;
    // Where it can't be set, the file stays closed to those it names.
    if (list && sameGroup) ::fsetxattr(file, accessList, list->data(), list->size(), 0);
    return 0;
}

void inheritUserAttributes(const std::string& path, int file) {
    const ssize_t size = ::listxattr(path.c_str(), nullptr, 0);
    if (size <= 0) return;
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t length = ::listxattr(path.c_str(), names.data(), names.size());
    if (length <= 0) return;
    std::string_view rest(names.data(), static_cast<std::size_t>(length));
    while (!rest.empty()) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(name.size() + 1);
        if (!name.starts_with("user.")) continue;
        int error = 0;
        const std::optional<std::string> value = extendedAttribute(path, name.c_str(), error);
        if (value) ::fsetxattr(file, name.c_str(), value->data(), value->size(), 0);
    }
}

}  // namespace marquell::platform
