// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/FileDescriptor.h"

namespace marquell::platform {

/// A process of ours and the program's ends of what leads to it. Whoever holds it kills and reaps.
struct SpawnedHelper {
    ::pid_t process = -1;
    FileDescriptor socket;    ///< does not block
    FileDescriptor lifeline;  ///< the process is killed when this is closed
};

/// Starts a helper with the descriptors of HelperProtocol.h and nothing else of this process: no
/// other descriptor, no environment, no signal handling, not its process group, since a terminal's
/// keys are no business of a helper. Returns 0 or errno. Any thread.
int spawnHelper(const std::string& program, const std::vector<std::string>& arguments,
                SpawnedHelper& helper);

}  // namespace marquell::platform
