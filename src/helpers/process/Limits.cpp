// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/process/Limits.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>

#include "helpers/process/Sanitized.h"
#include "platform/HelperProtocol.h"

namespace marquell::helpers {
namespace {

constexpr rlim_t megabyte = rlim_t{1024} * 1024;

struct Limit {
    __rlimit_resource resource;
    rlim_t value;
    bool alsoSanitized;
};

constexpr std::array<Limit, 6> limits = {{
    {RLIMIT_DATA, 1024 * megabyte, false},  // memory of its own
    // Pages that were filled and then protected are not counted above. Large files are mapped: most
    // of what TIFF can reach, which ends at 4 GB. A number that fits 32-bit machines.
    {RLIMIT_AS, 4095 * megabyte, false},
    {RLIMIT_FSIZE, 0, false},
    {RLIMIT_NOFILE, 32, true},
    {RLIMIT_CORE, 0, true},
    {RLIMIT_STACK, 8 * megabyte, true},
}};

void lower(const Limit& limit) {
    struct ::rlimit value {};
    if (::getrlimit(limit.resource, &value) != 0) return;
    value.rlim_max = std::min(value.rlim_max, limit.value);
    value.rlim_cur = value.rlim_max;
    ::setrlimit(limit.resource, &value);
}

void beFirstToGo() {
    const int file = ::open("/proc/self/oom_score_adj", O_WRONLY | O_CLOEXEC);
    if (file < 0) return;
    static_cast<void>(::write(file, "1000", 4));
    ::close(file);
}

}  // namespace

void limitResources() {
    ::close_range(platform::helperLifeline + 1, ~0U, 0);
    beFirstToGo();  // the file is closed to a process that is not dumpable
    for (const Limit& limit : limits) {
        if (limit.alsoSanitized || !isSanitized) lower(limit);
    }
    // A core would go to a crash handler in spite of its limit, and hold the content of the file.
    if (!isSanitized) ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

bool dieWithProgram(int lifeline) {
    // Not PR_SET_PDEATHSIG: that one fires when the thread ends that started this process.
    const int flags = ::fcntl(lifeline, F_GETFL);
    if (flags < 0 || ::fcntl(lifeline, F_SETOWN, ::getpid()) != 0 ||
        ::fcntl(lifeline, F_SETSIG, SIGKILL) != 0 ||
        ::fcntl(lifeline, F_SETFL, flags | O_ASYNC) != 0) {
        return false;
    }
    pollfd end = {lifeline, POLLIN, 0};
    return ::poll(&end, 1, 0) == 0;
}

}  // namespace marquell::helpers
