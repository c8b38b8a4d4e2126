// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/FileDescriptor.h"

namespace marquell::platform {

/// Tells when files of a folder may have changed, whoever changed them and in whatever way. The
/// folder is watched rather than the files, since mostly these are replaced. For one thread.
class FolderWatch {
public:
    /// Nothing is watched yet. `names` are those that matter.
    FolderWatch(std::string folder, std::vector<std::string> names);

    enum class Renewal { same, anew, refused };

    /// Sees to it that the folder is watched that the path leads to by now; it is made if it is
    /// gone. After `anew` earlier changes may have been missed; after `refused`, as at the system's
    /// limits, nothing is watched.
    Renewal renew();

    /// Readable when there are events; -1 while nothing is watched.
    int descriptor() const { return events_.get(); }

    /// Takes all events. True if one of the names may have to do with them.
    bool takeEvents();

private:
    bool matters(const char* name) const;

    std::string folder_;
    std::vector<std::string> names_;
    FileDescriptor events_;
    dev_t device_ = 0;  ///< of the watched folder, as the next
    ino_t inode_ = 0;
};

}  // namespace marquell::platform
