// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/process/HelperRun.h"

#include <unistd.h>

#include <cstdint>

#include "helpers/process/Confinement.h"
#include "helpers/process/Limits.h"
#include "platform/HelperProtocol.h"

namespace marquell::helpers {

int runHelper(void (*prepare)(), bool (*readsSamples)(), const RequestReader& read) {
    limitResources();
    if (!dieWithProgram(platform::helperLifeline)) return 1;
    prepare();
    const std::uint32_t protections = confine();
    // Whoever can't read these will fail over any file: better not to begin.
    if (!readsSamples()) return 1;
    const bool isDone = answerRequests(platform::helperSocket, protections, read);
    // Nothing is worth cleaning up, and a process that was taken over must not run exit handlers.
    ::_exit(isDone ? 0 : 1);
}

}  // namespace marquell::helpers
