// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/light/SystemCallFilter.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>

namespace marquell::helpers {
namespace {

/// Calls refused whatever their arguments. Names that this machine does not have are left out.
constexpr std::array refusedCalls = {
    // Opening, creating, moving and removing files
    "open", "openat", "openat2", "creat", "open_by_handle_at", "name_to_handle_at", "open_tree",
    "mkdir", "mkdirat", "mknod", "mknodat", "rename", "renameat", "renameat2", "rmdir", "unlink",
    "unlinkat", "link", "linkat", "symlink", "symlinkat", "memfd_create", "memfd_secret", "mq_open",
    "mq_unlink", "execve", "execveat", "uselib", "chroot", "pivot_root", "inotify_init",
    "inotify_init1", "inotify_add_watch", "fanotify_init", "fanotify_mark",
    // Changing files; some of it works on a descriptor for reading
    "truncate", "truncate64", "ftruncate", "ftruncate64", "fallocate", "chmod", "fchmod",
    "fchmodat", "chown", "fchown", "lchown", "fchownat", "utime", "utimes", "utimensat",
    "utimensat_time64", "futimesat", "setxattr", "lsetxattr", "fsetxattr", "removexattr",
    "lremovexattr", "fremovexattr", "flock", "ioctl", "quotactl", "quotactl_fd", "swapon",
    "swapoff", "acct",
    // Sockets beside the one that is open
    "socket", "socketpair", "socketcall", "connect", "bind", "listen", "accept", "accept4",
    // Processes and threads
    "fork", "vfork", "clone", "ptrace", "process_vm_readv", "process_vm_writev", "process_madvise",
    "process_mrelease", "pidfd_open", "pidfd_getfd", "pidfd_send_signal", "kcmp", "rt_sigqueueinfo",
    "rt_tgsigqueueinfo", "setpgid", "setsid", "setns", "unshare", "setrlimit", "setpriority",
    "ioprio_set", "sched_setscheduler", "sched_setparam", "sched_setattr", "sched_setaffinity",
    "migrate_pages", "move_pages", "personality", "vhangup",
    // Memory shared with others, messages to others
    "shmget", "shmat", "shmctl", "semget", "semctl", "semop", "semtimedop", "msgget", "msgctl",
    "msgsnd", "msgrcv", "ipc", "add_key", "request_key", "keyctl", "splice", "tee", "vmsplice",
    // Parts of the kernel that only ever served attacks on it from here
    "io_uring_setup", "io_uring_enter", "io_uring_register", "bpf", "perf_event_open",
    "userfaultfd", "modify_ldt", "io_setup", "lookup_dcookie", "syslog", "nfsservctl",
    // What a helper of a privileged user could do to the machine
    "mount", "umount", "umount2", "move_mount", "fsopen", "fsconfig", "fsmount", "fspick",
    "mount_setattr", "init_module", "finit_module", "delete_module", "kexec_load",
    "kexec_file_load", "reboot", "sethostname", "setdomainname", "settimeofday", "stime",
    "clock_settime", "clock_settime64", "adjtimex", "clock_adjtime", "clock_adjtime64", "iopl",
    "ioperm"};

/// A call refused for some values of one argument.
struct RefusedArgument {
    const char* call;
    scmp_arg_cmp when;
};

/// The bits are compared as the kernel takes them: it ignores the upper half of an int, in which an
/// attacker would hide the difference.
constexpr scmp_arg_cmp integerIs(unsigned argument, unsigned value) {
    return {argument, SCMP_CMP_MASKED_EQ, 0xffffffff, value};
}
constexpr scmp_arg_cmp hasBits(unsigned argument, unsigned bits) {
    return {argument, SCMP_CMP_MASKED_EQ, bits, bits};
}
constexpr scmp_arg_cmp isNot(unsigned argument, unsigned value) {
    return {argument, SCMP_CMP_NE, value, 0};
}

std::array<RefusedArgument, 18> refusedArguments() {
    const auto self = static_cast<unsigned>(::getpid());
    return {{
        // abort() signals its own process.
        {"kill", isNot(0, self)},
        {"tgkill", isNot(0, self)},
        {"tkill", isNot(0, self)},
        // A descriptor can be made to signal any process, with any signal.
        {"fcntl", integerIs(1, F_SETOWN)},
        {"fcntl", integerIs(1, F_SETOWN_EX)},
        {"fcntl", integerIs(1, F_SETSIG)},
        {"fcntl", integerIs(1, F_SETFL)},
        {"fcntl", integerIs(1, F_SETLK)},
        {"fcntl", integerIs(1, F_SETLKW)},
        {"fcntl", integerIs(1, F_OFD_SETLK)},
        {"fcntl", integerIs(1, F_OFD_SETLKW)},
        {"fcntl", integerIs(1, F_SETLEASE)},
        // Of its own limits it may only ask.
        {"prlimit64", isNot(0, 0)},
        {"prlimit64", isNot(2, 0)},
        // No code but what was loaded, and no memory that the limits do not count.
        {"mmap", hasBits(2, PROT_EXEC)},
        {"mprotect", hasBits(2, PROT_EXEC)},
        {"mmap", hasBits(3, MAP_SHARED | MAP_ANONYMOUS)},
        {"mmap", hasBits(3, MAP_GROWSDOWN)},
    }};
}

bool addRules(scmp_filter_ctx filter) {
    const auto refuse = [filter](const char* name, const scmp_arg_cmp* when, int error) {
        const int call = ::seccomp_syscall_resolve_name(name);
        if (call == __NR_SCMP_ERROR) return true;
        return ::seccomp_rule_add_array(filter, SCMP_ACT_ERRNO(static_cast<unsigned>(error)), call,
                                        when == nullptr ? 0 : 1, when) == 0;
    };
    const auto arguments = refusedArguments();
    // The C library goes back to clone where there is no clone3, and is refused there.
    return refuse("clone3", nullptr, ENOSYS) &&
           std::all_of(refusedCalls.begin(), refusedCalls.end(),
                       [&](const char* name) { return refuse(name, nullptr, EPERM); }) &&
           std::all_of(arguments.begin(), arguments.end(), [&](const RefusedArgument& argument) {
               return refuse(argument.call, &argument.when, EPERM);
           });
}

/// Calls that are newer than the table do not exist for this process. On all machines they have
/// the numbers behind those that it knows.
bool refuseNewerCalls() {
    constexpr std::uint32_t newest = __NR_set_mempolicy_home_node;
    std::array<sock_filter, 4> steps = {{
        {BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
        {BPF_JMP | BPF_JGT | BPF_K, 0, 1, newest},
        {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | ENOSYS},
        {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
    }};
    const sock_fprog program = {steps.size(), steps.data()};
    return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

}  // namespace

bool filterSystemCalls() {
    scmp_filter_ctx filter = ::seccomp_init(SCMP_ACT_ALLOW);
    if (filter == nullptr) return false;
    ::seccomp_attr_set(filter, SCMP_FLTATR_CTL_OPTIMIZE, 2);  // found in few steps
    const bool isFiltered = addRules(filter) && ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return isFiltered && refuseNewerCalls();
}

}  // namespace marquell::helpers
