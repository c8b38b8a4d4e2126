// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>

namespace marquell::platform {
namespace {

/// A path as the kernel takes it: what is left of it below an open folder, or all of it below
/// AT_FDCWD when it is short enough. Good until the thread reaches its next path.
struct ReachedPath {
    int base = AT_FDCWD;
    const char* rest = "";
    int error = 0;
};

/// The folder on the way to the last long path of this thread. Trees thousands of folders deep are
/// visited along their branches: without it each visit would walk down from the root again.
struct FolderOnTheWay {
    std::string path;
    FileDescriptor folder;
    std::time_t openedAt = 0;
};

/// By a clock that costs nothing to read; in whole seconds, which is as long as a folder may be
/// remembered: it could be moved away meanwhile and another take its name.
std::time_t now() {
    timespec time = {};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return time.tv_sec;
}

FolderOnTheWay& folderOnTheWay() {
    thread_local FolderOnTheWay folder;
    return folder;
}

/// Length of the longest run of whole components at the start of `rest` that one call can take.
std::size_t pieceLength(std::string_view rest) {
    const std::size_t slash = rest.rfind('/', PATH_MAX - 2);
    return slash == std::string_view::npos ? 0 : slash;
}

bool isBelow(std::string_view path, std::string_view folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

ReachedPath reachInPieces(const std::string& path, FolderOnTheWay& way) {
    if (!isBelow(path, way.path) || way.openedAt != now()) way = {};
    std::size_t done = way.path.empty() ? 0 : way.path.size() + 1;
    while (path.size() - done >= PATH_MAX) {
        const std::size_t length = pieceLength(std::string_view(path).substr(done));
        if (length == 0) return {.error = ENAMETOOLONG};
        const std::string piece = path.substr(done, length);
        const int base = way.folder.isOpen() ? way.folder.get() : AT_FDCWD;
        FileDescriptor next(::openat(base, piece.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!next.isOpen()) return {.error = errno};
        way = {path.substr(0, done + length), std::move(next), now()};
        done += length + 1;
    }
    return {way.folder.get(), path.c_str() + done, 0};
}

ReachedPath reach(const std::string& path) {
    FolderOnTheWay& way = folderOnTheWay();
    if (path.size() >= PATH_MAX) return reachInPieces(path, way);
    if (way.folder.isOpen()) way = {};
    return {AT_FDCWD, path.c_str(), 0};
}

bool statxAt(const ReachedPath& path, int flags, unsigned mask, struct statx& result, int& error) {
    if (path.error != 0) {
        error = path.error;
        return false;
    }
    if (::statx(path.base, path.rest, flags | AT_STATX_SYNC_AS_STAT, mask, &result) != 0) {
        error = errno;
        return false;
    }
    return true;
}

Date dateOf(const struct statx_timestamp& timestamp) {
    return {timestamp.tv_sec, timestamp.tv_nsec};
}

DirectoryEntryKind kindOfEntry(int folder, const dirent& entry) {
    switch (entry.d_type) {
        case DT_DIR:
            return DirectoryEntryKind::folder;
        case DT_LNK:
            return DirectoryEntryKind::link;
        case DT_UNKNOWN:
            break;
        default:
            return DirectoryEntryKind::other;
    }
    struct stat status = {};
    if (::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return DirectoryEntryKind::other;
    }
    if (S_ISDIR(status.st_mode)) return DirectoryEntryKind::folder;
    return S_ISLNK(status.st_mode) ? DirectoryEntryKind::link : DirectoryEntryKind::other;
}

bool isSelfOrParent(const char* name) {
    return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

/// The attribute's value through `read`, which is one of the getxattr family.
std::optional<std::string> readAttribute(const std::function<ssize_t(char*, size_t)>& read,
                                         int& error) {
    std::string value(256, '\0');
    for (;;) {
        const ssize_t length = read(value.data(), value.size());
        if (length >= 0) {
            value.resize(static_cast<std::size_t>(length));
            return value;
        }
        if (errno != ERANGE || value.size() > XATTR_SIZE_MAX) {
            error = errno;
            return std::nullopt;
        }
        value.resize(value.size() * 4);
    }
}

std::optional<EntryAttributes> entryAttributes(const std::string& path, int flags, int& error) {
    struct statx status = {};
    constexpr unsigned wanted = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_BTIME;
    if (!statxAt(reach(path), flags, wanted, status, error)) return std::nullopt;
    EntryAttributes attributes;
    attributes.type = status.stx_mode & S_IFMT;
    attributes.size = static_cast<std::int64_t>(status.stx_size);
    if ((status.stx_mask & STATX_BTIME) != 0) attributes.creation = dateOf(status.stx_btime);
    if ((status.stx_mask & STATX_MTIME) != 0) attributes.modification = dateOf(status.stx_mtime);
    return attributes;
}

}  // namespace

EntryKind kindOf(const std::string& path) {
    struct statx status = {};
    int error = 0;
    if (!statxAt(reach(path), 0, STATX_TYPE, status, error)) return EntryKind::missing;
    return S_ISDIR(status.stx_mode) ? EntryKind::folder : EntryKind::other;
}

bool entryExists(const std::string& path, int& error) {
    struct statx status = {};
    return statxAt(reach(path), AT_SYMLINK_NOFOLLOW, STATX_TYPE, status, error);
}

std::optional<EntryAttributes> attributesOf(const std::string& path, int& error) {
    return entryAttributes(path, AT_SYMLINK_NOFOLLOW, error);
}

std::optional<EntryAttributes> targetAttributesOf(const std::string& path, int& error) {
    return entryAttributes(path, 0, error);
}

std::optional<std::string> realPath(const std::string& path, int& error) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    if (real == nullptr) {
        error = errno;
        return std::nullopt;
    }
    return real.get();
}

FileDescriptor openPath(const std::string& path, int flags, int& error) {
    const ReachedPath reached = reach(path);
    if (reached.error != 0) {
        error = reached.error;
        return {};
    }
    FileDescriptor opened(::openat(reached.base, reached.rest, flags | O_CLOEXEC));
    if (!opened.isOpen()) error = errno;
    return opened;
}

std::optional<std::string> extendedAttribute(const std::string& path, const char* name,
                                             int& error) {
    if (path.size() < PATH_MAX) {
        return readAttribute(
            [&](char* buffer, size_t size) { return ::getxattr(path.c_str(), name, buffer, size); },
            error);
    }
    // There is no getxattrat before Linux 6.13, and fgetxattr refuses O_PATH descriptors, which
    // are the only ones that open without touching a FIFO or device.
    const FileDescriptor opened = openPath(path, O_PATH, error);
    if (!opened.isOpen()) return std::nullopt;
    const std::string link = "/proc/self/fd/" + std::to_string(opened.get());
    return readAttribute(
        [&](char* buffer, size_t size) { return ::getxattr(link.c_str(), name, buffer, size); },
        error);
}

int readDirectory(
    const std::string& path, bool followLink,
    const std::function<bool(int folder, const char* name, DirectoryEntryKind kind)>& visit) {
    int error = 0;
    FileDescriptor opened =
        openPath(path, O_RDONLY | O_DIRECTORY | O_NONBLOCK | (followLink ? 0 : O_NOFOLLOW), error);
    if (!opened.isOpen()) return error;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(opened.get()), &::closedir);
    if (stream == nullptr) return errno;
    const int folder = opened.release();
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(stream.get());
        if (entry == nullptr) return errno;
        if (isSelfOrParent(entry->d_name)) continue;
        if (!visit(folder, entry->d_name, kindOfEntry(folder, *entry))) return 0;
    }
}

bool linkLeadsToFolder(int folder, const char* name) {
    struct stat status = {};
    return ::fstatat(folder, name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace marquell::platform
