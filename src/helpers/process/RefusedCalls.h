// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace marquell::helpers {

/// Calls that a reader of open files is refused whatever their arguments. Those that a machine does
/// not have are left out there.
inline constexpr std::array refusedCalls = {
    // Opening, creating, moving and removing files
    "open", "openat", "openat2", "creat", "open_by_handle_at", "name_to_handle_at", "open_tree",
    "mkdir", "mkdirat", "mknod", "mknodat", "rename", "renameat", "renameat2", "rmdir", "unlink",
    "unlinkat", "link", "linkat", "symlink", "symlinkat", "memfd_create", "memfd_secret", "mq_open",
    "mq_unlink", "execve", "execveat", "uselib", "chroot", "pivot_root", "chdir", "fchdir",
    // Finding out which files there are, and watching them
    "stat", "stat64", "lstat", "lstat64", "newfstatat", "fstatat64", "statx", "statfs", "statfs64",
    "access", "faccessat", "faccessat2", "readlink", "readlinkat", "getxattr", "lgetxattr",
    "listxattr", "llistxattr", "inotify_init", "inotify_init1", "inotify_add_watch",
    "inotify_rm_watch", "fanotify_init", "fanotify_mark",
    // Changing files; some of it works on a descriptor for reading
    "truncate", "truncate64", "ftruncate", "ftruncate64", "fallocate", "chmod", "fchmod",
    "fchmodat", "chown", "chown32", "fchown", "fchown32", "lchown", "lchown32", "fchownat", "utime",
    "utimes", "utimensat", "utimensat_time64", "futimesat", "setxattr", "lsetxattr", "fsetxattr",
    "removexattr", "lremovexattr", "fremovexattr", "flock", "ioctl", "quotactl", "quotactl_fd",
    "swapon", "swapoff", "acct", "sync", "syncfs",
    // Sockets beside the one that is open, and other descriptors that are no files
    "socket", "socketpair", "socketcall", "connect", "bind", "listen", "accept", "accept4",
    "setsockopt", "pipe", "pipe2", "eventfd", "eventfd2", "signalfd", "signalfd4", "timerfd_create",
    "timerfd_settime", "timerfd_settime64", "timer_create", "epoll_create", "epoll_create1",
    // Many descriptors at once, the lifeline among them
    "close_range",
    // Processes and threads, and what this one may do
    "fork", "vfork", "clone", "ptrace", "process_vm_readv", "process_vm_writev", "process_madvise",
    "process_mrelease", "pidfd_open", "pidfd_getfd", "pidfd_send_signal", "kcmp", "rt_sigqueueinfo",
    "rt_tgsigqueueinfo", "setpgid", "setsid", "setns", "unshare", "setrlimit", "setpriority",
    "ioprio_set", "sched_setscheduler", "sched_setparam", "sched_setattr", "sched_setaffinity",
    "migrate_pages", "move_pages", "personality", "vhangup", "prctl", "seccomp",
    "landlock_create_ruleset", "landlock_add_rule", "landlock_restrict_self", "setuid", "setuid32",
    "setgid", "setgid32", "setreuid", "setreuid32", "setregid", "setregid32", "setresuid",
    "setresuid32", "setresgid", "setresgid32", "setfsuid", "setfsuid32", "setfsgid", "setfsgid32",
    "setgroups", "setgroups32", "capset",
    // Memory that can't be given back to the system
    "mlock", "mlock2", "mlockall", "munlock", "munlockall",
    // Memory shared with others, messages to others
    "shmget", "shmat", "shmctl", "semget", "semctl", "semop", "semtimedop", "semtimedop_time64",
    "msgget", "msgctl", "msgsnd", "msgrcv", "ipc", "add_key", "request_key", "keyctl", "splice",
    "tee", "vmsplice",
    // Parts of the kernel that only ever served attacks on it from here
    "io_uring_setup", "io_uring_enter", "io_uring_register", "bpf", "perf_event_open",
    "userfaultfd", "modify_ldt", "io_setup", "lookup_dcookie", "syslog", "nfsservctl",
    "remap_file_pages",
    // What a helper of a privileged user could do to the machine
    "mount", "umount", "umount2", "move_mount", "fsopen", "fsconfig", "fsmount", "fspick",
    "mount_setattr", "init_module", "finit_module", "delete_module", "kexec_load",
    "kexec_file_load", "reboot", "sethostname", "setdomainname", "settimeofday", "stime",
    "clock_settime", "clock_settime64", "adjtimex", "clock_adjtime", "clock_adjtime64", "iopl",
    "ioperm"};

}  // namespace marquell::helpers
