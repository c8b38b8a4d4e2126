// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <thread>

namespace marquell::platform {
namespace {

/// Whether the name still leads to the open file: its folder may have been removed and made anew.
bool leadsTo(const std::string& path, int file) {
    struct stat named = {};
    struct stat open = {};
    return ::stat(path.c_str(), &named) == 0 && ::fstat(file, &open) == 0 &&
           named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

}  // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience,
                   const std::atomic<bool>& isHurried) {
    constexpr auto pause = std::chrono::milliseconds(2);
    const auto end = std::chrono::steady_clock::now() + patience;
    // A lock that is waited for in the kernel could not be given up.
    while ((error_ = tryOnce(path)) == EWOULDBLOCK) {
        if (isHurried || std::chrono::steady_clock::now() >= end) break;
        std::this_thread::sleep_for(pause);
    }
}

int FileLock::tryOnce(const std::string& path) {
    if (!file_.isOpen()) {
        // Opened for writing, so that its closing is an event for those who watch the folder.
        constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
        file_ = FileDescriptor(::open(path.c_str(), flags, 0600));
        if (!file_.isOpen()) return errno;
    }
    if (::flock(file_.get(), LOCK_EX | LOCK_NB) != 0) {
        return errno == EINTR ? EWOULDBLOCK : errno;
    }
    if (leadsTo(path, file_.get())) return 0;
    file_ = FileDescriptor();
    return EWOULDBLOCK;
}

}  // namespace marquell::platform
