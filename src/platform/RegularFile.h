// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/FileDescriptor.h"

namespace marquell::platform {

/// A file whose content may be read.
struct RegularFile {
    FileDescriptor descriptor;  ///< for reading; not open if there is none
    struct ::stat status {};    ///< as it was when it was opened
};

/// Opens a path for its content, links followed. What is no regular file is never opened: not a
/// FIFO or a device, which could block or act, also when one takes the place of a file just now.
/// Not open on failure: `error` is then errno, or 0 for a folder, FIFO, socket, device or dangling
/// link, which have no content of this kind.
RegularFile openRegularFile(const std::string& path, int& error);

}  // namespace marquell::platform
