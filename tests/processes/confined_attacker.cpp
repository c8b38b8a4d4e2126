// SPDX-License-Identifier: GPL-3.0-or-later
// What somebody who has taken over a confined process would try. Each attempt must succeed before
// the process is confined, or it would prove nothing and is named as not tried, and fail after.
// Ends with 0 if all is refused, 1 if not, and 77 if nothing can be tried here.

#include <fcntl.h>
#include <grp.h>
#include <linux/io_uring.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "helpers/process/Confinement.h"
#include "helpers/process/Limits.h"
#include "helpers/process/Sanitized.h"
#include "platform/HelperProtocol.h"

namespace {

using namespace marquell;

std::string folder;
int readable = -1;  // a file of the user's own, open for reading as a helper has it
int writable = -1;

constexpr int readWrite = PROT_READ | PROT_WRITE;
constexpr int anonymous = MAP_PRIVATE | MAP_ANONYMOUS;
constexpr std::size_t page = 4096;
constexpr std::size_t half = std::size_t{1} << 29;  // of a GB

// For calls that want a place or a value.
char byte = 0;
int ends[2] = {-1, -1};
constexpr int one = 1;
constexpr std::uint32_t allowing = SECCOMP_RET_ALLOW;
const ::sigset_t noSignals{};
::cpu_set_t processors{};

std::string in(const char* name) { return folder + "/" + name; }

bool isMapped(std::size_t length, int protection, int flags) {
    return ::mmap(nullptr, length, protection, flags, -1, 0) != MAP_FAILED;
}

/// Whether a child process comes to be.
bool isForked(::pid_t child) {
    if (child == 0) ::_exit(0);
    return child > 0;
}

/// Whether so many pieces of memory can be had that no limit on memory for writing counts.
bool takesProtected(int count, std::size_t length) {
    for (; count > 0; --count) {
        void* const piece = ::mmap(nullptr, length, readWrite, anonymous, -1, 0);
        if (piece == MAP_FAILED || ::mprotect(piece, length, PROT_READ) != 0) return false;
    }
    return true;
}

/// Whether a call of the kind of mprotect turns data into code.
bool isMadeCode(long call) {
    void* const data = ::mmap(nullptr, page, readWrite, anonymous, -1, 0);
    return ::syscall(call, data, page, PROT_READ | PROT_EXEC, -1) == 0;
}

struct Attempt {
    const char* name;
    bool (*succeeds)();
};

const std::vector<Attempt> attempts = {
    {"read a file", [] { return ::open("/etc/passwd", O_RDONLY) >= 0; }},
    {"read a folder", [] { return ::open("/", O_RDONLY | O_DIRECTORY) >= 0; }},
    {"write a file", [] { return ::open(in("file").c_str(), O_WRONLY) >= 0; }},
    {"write its own file",
     [] {
         const std::string path = "/proc/self/fd/" + std::to_string(readable);
         return ::open(path.c_str(), O_RDWR) >= 0;
     }},
    {"write what is open", [] { return ::write(writable, "x", 1) == 1; }},
    {"truncate", [] { return ::truncate(in("file").c_str(), 0) == 0; }},
    {"make a file", [] { return ::creat(in("new").c_str(), 0600) >= 0; }},
    {"make a folder", [] { return ::mkdir(in("folder").c_str(), 0700) == 0; }},
    {"make a link", [] { return ::symlink("/etc", in("link").c_str()) == 0; }},
    {"rename", [] { return ::rename(in("moved").c_str(), in("there").c_str()) == 0; }},
    {"remove", [] { return ::unlink(in("removed").c_str()) == 0; }},
    {"change the mode", [] { return ::fchmod(readable, 0777) == 0; }},
    {"change the mode by a newer call",
     [] { return ::syscall(452, AT_FDCWD, in("file").c_str(), 0777, 0) == 0; }},
    {"change the dates", [] { return ::futimens(readable, nullptr) == 0; }},
    {"set an attribute", [] { return ::fsetxattr(readable, "user.x", "x", 1, 0) == 0; }},
    {"lock its file", [] { return ::flock(readable, LOCK_EX | LOCK_NB) == 0; }},
    {"use the network", [] { return ::socket(AF_INET, SOCK_STREAM, 0) >= 0; }},
    {"use local sockets", [] { return ::socket(AF_UNIX, SOCK_STREAM, 0) >= 0; }},
    {"run a program", [] { return ::execl("/bin/sh", "sh", "-c", "exit 0", nullptr) == 0; }},
    {"fork", [] { return isForked(::fork()); }},
    {"fork by clone3",
     [] {
         std::uint64_t arguments[11] = {};
         arguments[4] = SIGCHLD;
         return isForked(static_cast<::pid_t>(::syscall(SYS_clone3, arguments, sizeof(arguments))));
     }},
    {"signal the program", [] { return ::kill(::getppid(), 0) == 0; }},
    {"signal its thread", [] { return ::syscall(SYS_tgkill, ::getppid(), ::getppid(), 0) == 0; }},
    {"have a descriptor signal the program",
     [] { return ::fcntl(platform::helperSocket, F_SETOWN, ::getppid()) == 0; }},
    {"the same with a disguised number",
     [] {
         const long command = F_SETOWN | (1L << 40);
         return ::syscall(SYS_fcntl, platform::helperSocket, command, ::getppid()) == 0;
     }},
    {"outlive the program", [] { return ::fcntl(platform::helperSocket, F_SETFL, 0) == 0; }},
    {"close the lifeline", [] { return ::close(platform::helperLifeline) == 0; }},
    {"put another in the lifeline's place",
     [] { return ::dup2(readable, platform::helperLifeline) >= 0; }},
    {"the same by a newer call",
     [] { return ::dup3(readable, platform::helperLifeline, O_CLOEXEC) >= 0; }},
    {"close it among others", [] { return ::close_range(platform::helperLifeline, ~0U, 0) == 0; }},
    {"close it with a disguised number",
     [] { return ::syscall(SYS_close, platform::helperLifeline | (1L << 40)) == 0; }},
    {"hold the program", [] { return ::syscall(SYS_pidfd_open, ::getppid(), 0) >= 0; }},
    {"trace the program",
     [] { return ::ptrace(PTRACE_SEIZE, ::getppid(), nullptr, nullptr) == 0; }},
    {"limit the program",
     [] {
         struct ::rlimit limit {};
         return ::prlimit(::getppid(), RLIMIT_NOFILE, nullptr, &limit) == 0;
     }},
    {"raise its limits",
     [] {
         const struct ::rlimit limit = {16, 16};
         return ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
     }},
    {"take 4 GB", [] { return isMapped(std::size_t{1} << 32, readWrite, anonymous); }},
    {"take 4 GB that are protected when they are filled", [] { return takesProtected(9, half); }},
    {"take memory that is not counted",
     [] { return isMapped(page, readWrite, MAP_SHARED | MAP_ANONYMOUS); }},
    {"take stacks that are not counted",
     [] { return isMapped(page, readWrite, anonymous | MAP_GROWSDOWN); }},
    {"make code", [] { return isMapped(page, PROT_READ | PROT_EXEC, anonymous); }},
    {"make code of what is there", [] { return isMadeCode(SYS_mprotect); }},
    {"the same with a key", [] { return isMadeCode(SYS_pkey_mprotect); }},
    {"map a file's pages anew",
     [] {
         void* const pages = ::mmap(nullptr, 2 * page, PROT_READ, MAP_SHARED, writable, 0);
         return ::remap_file_pages(pages, page, 0, 1, 0) == 0;
     }},
    {"hold memory", [] { return ::mlock(folder.data(), 1) == 0; }},
    {"make a file in memory", [] { return ::memfd_create("x", 0) >= 0; }},
    {"use io_uring",
     [] {
         io_uring_params parameters{};
         return ::syscall(SYS_io_uring_setup, 1, &parameters) >= 0;
     }},
    {"make namespaces", [] { return ::unshare(CLONE_NEWNS) == 0; }},
    {"share memory", [] { return ::syscall(SYS_shmget, 0, page, 01600) >= 0; }},
    {"learn what a file is",
     [] {
         struct ::stat status {};
         return ::stat("/etc/passwd", &status) == 0;
     }},
    {"the same by a newer call",
     [] {
         struct ::statx status {};
         return ::statx(AT_FDCWD, "/etc/passwd", 0, STATX_SIZE, &status) == 0;
     }},
    {"learn of a file", [] { return ::access("/etc/passwd", F_OK) == 0; }},
    {"learn where a link leads", [] { return ::readlink("/proc/self/exe", &byte, 1) == 1; }},
    {"learn a file's attributes", [] { return ::listxattr(in("file").c_str(), &byte, 0) >= 0; }},
    {"watch files", [] { return ::inotify_init1(0) >= 0; }},
    {"have all files written", [] { return ::syncfs(readable) == 0; }},
    {"make a pipe", [] { return ::pipe(ends) == 0; }},
    {"make a counter", [] { return ::eventfd(0, 0) >= 0; }},
    {"make a clock", [] { return ::timerfd_create(CLOCK_MONOTONIC, 0) >= 0; }},
    {"make a timer",
     [] {
         ::timer_t timer{};
         return ::timer_create(CLOCK_MONOTONIC, nullptr, &timer) == 0;
     }},
    {"read signals", [] { return ::signalfd(-1, &noSignals, 0) >= 0; }},
    {"set up its socket",
     [] {
         return ::setsockopt(platform::helperSocket, SOL_SOCKET, SO_PASSCRED, &one, sizeof(one)) ==
                0;
     }},
    {"run on other processors",
     [] { return ::sched_setaffinity(0, sizeof(processors), &processors) == 0; }},
    {"run before others", [] { return ::setpriority(PRIO_PROCESS, 0, 0) == 0; }},
    {"be another user", [] { return ::setuid(::getuid()) == 0; }},
    {"be of other groups", [] { return ::setgroups(0, nullptr) == 0; }},
    {"be readable by others", [] { return ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0) == 0; }},
    {"ask for filters",
     [] { return ::syscall(SYS_seccomp, SECCOMP_GET_ACTION_AVAIL, 0, &allowing) == 0; }},
    {"make rules for files",
     [] {
         return ::syscall(SYS_landlock_create_ruleset, nullptr, 0,
                          LANDLOCK_CREATE_RULESET_VERSION) > 0;
     }},
};

/// What reading a file needs, and must still be possible.
const std::vector<Attempt> needs = {
    {"read its file", [] { return ::pread(readable, &byte, 1, 0) == 1; }},
    {"map its file",
     [] { return ::mmap(nullptr, 1, PROT_READ, MAP_SHARED, readable, 0) != MAP_FAILED; }},
    {"take 256 MB", [] { return isMapped(std::size_t{1} << 28, readWrite, anonymous); }},
    {"ask for its limits",
     [] {
         struct ::rlimit limit {};
         return ::getrlimit(RLIMIT_STACK, &limit) == 0;
     }},
    {"close a file", [] { return ::close(::dup(readable)) == 0; }},
    {"end itself", [] { return ::kill(::getpid(), 0) == 0; }},
};

void makeFiles() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    for (const char* name : {"file", "moved", "removed"}) std::ofstream(in(name)) << "content";
}

void openFiles() {
    readable = ::open(in("file").c_str(), O_RDONLY | O_CLOEXEC);
    writable = ::open(in("file").c_str(), O_RDWR | O_CLOEXEC);
}

/// Stands in for the socket and the lifeline, at their numbers.
void occupyNumbers() {
    int pair[2] = {-1, -1};
    ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair);
    const int away = ::fcntl(pair[0], F_DUPFD_CLOEXEC, platform::helperLifeline + 1);
    ::dup2(away, platform::helperSocket);
    ::dup2(away, platform::helperLifeline);
}

/// In a process of its own: what an attempt does must not reach the next.
bool succeedsInChild(const Attempt& attempt) {
    const ::pid_t child = ::fork();
    if (child == 0) ::_exit(attempt.succeeds() ? 0 : 1);
    int status = 1;
    ::waitpid(child, &status, 0);
    return status == 0;
}

/// In the confined process, so nothing is printed before it has ended. Returns how many were wrong.
int attack(const std::vector<const Attempt*>& tried) {
    ::signal(SIGXFSZ, SIG_IGN);
    helpers::limitResources();
    openFiles();
    if (helpers::confine() != (platform::systemCallFilter | platform::fileSystemRules)) return 77;
    int wrong = 0;
    const auto expect = [&wrong](const Attempt& attempt, bool isExpected) {
        if (attempt.succeeds() == isExpected) return;
        std::fprintf(stderr, "%s: %s\n", attempt.name, isExpected ? "refused" : "ALLOWED");
        ++wrong;
    };
    for (const Attempt* attempt : tried) expect(*attempt, false);
    for (const Attempt& need : needs) expect(need, true);
    return wrong == 0 ? 0 : 1;
}

}  // namespace

int main() {
    if (helpers::isSanitized) {
        std::puts("skipped: not confined in a build with sanitizers");
        return 77;
    }
    std::string pattern = std::filesystem::temp_directory_path() / "marquell-XXXXXX";
    folder = ::mkdtemp(pattern.data());
    makeFiles();
    ::sched_getaffinity(0, sizeof(processors), &processors);
    occupyNumbers();
    openFiles();
    std::vector<const Attempt*> tried;
    for (const Attempt& attempt : attempts) {
        if (succeedsInChild(attempt)) {
            tried.push_back(&attempt);
        } else {
            std::printf("not tried, refused anyway here: %s\n", attempt.name);
        }
    }
    makeFiles();
    std::fflush(stdout);
    const ::pid_t child = ::fork();
    if (child == 0) ::_exit(attack(tried));
    int status = 0;
    ::waitpid(child, &status, 0);
    std::filesystem::remove_all(folder);
    if (!WIFEXITED(status)) return 1;
    if (WEXITSTATUS(status) == 77) std::puts("skipped: the kernel lacks a protection");
    if (WEXITSTATUS(status) == 0) std::printf("%zu attempts refused\n", tried.size());
    return WEXITSTATUS(status);
}
