// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FolderWatch.h"

#include <sys/inotify.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

#include "platform/UserFolders.h"

namespace marquell::platform {

FolderWatch::FolderWatch(std::string folder, std::vector<std::string> names)
    : folder_(std::move(folder)), names_(std::move(names)) {}

FolderWatch::Renewal FolderWatch::renew() {
    struct stat folder = {};
    if (::stat(folder_.c_str(), &folder) != 0) {
        static_cast<void>(makeFolder(folder_));
        if (::stat(folder_.c_str(), &folder) != 0) folder = {};
    }
    const bool isSame = folder.st_dev == device_ && folder.st_ino == inode_;
    if (isSame && events_.isOpen()) return Renewal::same;
    device_ = folder.st_dev;
    inode_ = folder.st_ino;
    events_ = FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    constexpr unsigned kinds = IN_CLOSE_WRITE | IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE |
                               IN_MOVE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    if (::inotify_add_watch(events_.get(), folder_.c_str(), kinds) >= 0) return Renewal::anew;
    events_ = FileDescriptor();
    return Renewal::refused;
}

bool FolderWatch::takeEvents() {
    alignas(inotify_event) std::array<char, 4096> block{};
    bool isOurs = false;
    bool isOver = false;
    ssize_t length = 0;
    while (events_.isOpen() && (length = ::read(events_.get(), block.data(), block.size())) > 0) {
        const char* next = block.data();
        while (next < block.data() + length) {
            inotify_event event = {};
            std::memcpy(&event, next, sizeof event);
            // Without a name it is the folder's own event, or one that says that others are lost.
            isOurs = isOurs || event.len == 0 || matters(next + sizeof event);
            isOver = isOver || (event.mask & IN_IGNORED) != 0;
            next += sizeof event + event.len;
        }
    }
    if (isOver) events_ = FileDescriptor();
    return isOurs;
}

bool FolderWatch::matters(const char* name) const {
    return std::find(names_.begin(), names_.end(), name) != names_.end();
}

}  // namespace marquell::platform
