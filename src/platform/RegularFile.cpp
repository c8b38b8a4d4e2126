// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/RegularFile.h"

#include <fcntl.h>

#include <cerrno>
#include <utility>

#include "platform/FileSystem.h"

namespace marquell::platform {
namespace {

constexpr int readingFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY;

bool isSameFile(const struct ::stat& a, const struct ::stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Opens what `found` refers to, whatever lies at the path by now.
FileDescriptor openFound(const FileDescriptor& found, const std::string& path, int& error) {
    FileDescriptor opened =
        openPath("/proc/self/fd/" + std::to_string(found.get()), readingFlags, error);
    // Without /proc by the path again; the caller looks whether it is the same.
    if (!opened.isOpen() && error == ENOENT) opened = openPath(path, readingFlags, error);
    if (opened.isOpen()) error = 0;
    return opened;
}

}  // namespace

RegularFile openRegularFile(const std::string& path, int& error) {
    error = 0;
    RegularFile file;
    // A descriptor of this kind only refers to the entry; nothing is opened yet.
    const FileDescriptor found = openPath(path, O_PATH, error);
    if (!found.isOpen()) {
        int entryError = 0;
        if (error == ENOENT && entryExists(path, entryError)) error = 0;
        return file;
    }
    struct ::stat expected {};
    if (::fstat(found.get(), &expected) != 0) {
        error = errno;
        return file;
    }
    if (!S_ISREG(expected.st_mode)) return file;
    FileDescriptor opened = openFound(found, path, error);
    if (!opened.isOpen()) return file;
    if (::fstat(opened.get(), &file.status) != 0) {
        error = errno;
        return file;
    }
    if (S_ISREG(file.status.st_mode) && isSameFile(expected, file.status)) {
        file.descriptor = std::move(opened);
    } else {
        error = ESTALE;
    }
    return file;
}

}  // namespace marquell::platform
