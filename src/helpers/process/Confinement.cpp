// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/process/Confinement.h"

#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "helpers/process/Sanitized.h"
#include "helpers/process/SystemCallFilter.h"
#include "platform/HelperProtocol.h"

namespace marquell::helpers {
namespace {

/// The accesses to files that this version of the kernel's interface can refuse.
std::uint64_t fileAccesses(long version) {
    std::uint64_t accesses = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;  // all of the first version
    if (version >= 2) accesses |= LANDLOCK_ACCESS_FS_REFER;
#ifdef LANDLOCK_ACCESS_FS_TRUNCATE
    if (version >= 3) accesses |= LANDLOCK_ACCESS_FS_TRUNCATE;
#endif
#ifdef LANDLOCK_ACCESS_FS_IOCTL_DEV
    if (version >= 5) accesses |= LANDLOCK_ACCESS_FS_IOCTL_DEV;
#endif
    return accesses;
}

/// Refuses every access to files that are not open yet.
bool closeFileSystem() {
    const long version =
        ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) return false;
    landlock_ruleset_attr rules{};
    rules.handled_access_fs = fileAccesses(version);
    const long set = ::syscall(SYS_landlock_create_ruleset, &rules, sizeof(rules), 0);
    if (set < 0) return false;
    const bool isClosed = ::syscall(SYS_landlock_restrict_self, set, 0) == 0;
    ::close(static_cast<int>(set));
    return isClosed;
}

}  // namespace

std::uint32_t confine() {
    if (isSanitized || ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return 0;
    std::uint32_t protections = 0;
    if (closeFileSystem()) protections |= platform::fileSystemRules;
    if (filterSystemCalls()) protections |= platform::systemCallFilter;
    return protections;
}

}  // namespace marquell::helpers
