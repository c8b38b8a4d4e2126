// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperProcess.h"

#include <poll.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

namespace marquell::platform {
namespace {

constexpr auto endingTime = std::chrono::seconds(1);

/// Waits for the end of a process that need not be reaped by this. Where the kernel has no
/// descriptors of processes, waits as long as it takes.
void waitForEnd(::pid_t process) {
    const FileDescriptor handle(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
    if (!handle.isOpen()) {
        ::siginfo_t ignored{};
        ::waitid(P_PID, static_cast<::id_t>(process), &ignored, WEXITED | WNOWAIT);
        return;
    }
    pollfd end = {handle.get(), POLLIN, 0};
    const auto due = std::chrono::steady_clock::now() + endingTime;
    for (;;) {
        const auto rest =
            std::chrono::ceil<std::chrono::milliseconds>(due - std::chrono::steady_clock::now());
        if (rest.count() <= 0) return;
        if (::poll(&end, 1, static_cast<int>(rest.count())) >= 0 || errno != EINTR) return;
    }
}

}  // namespace

HelperProcess::HelperProcess(SpawnedHelper&& spawned)
    : process_(std::exchange(spawned.process, -1)),
      lifeline_(std::move(spawned.lifeline)),
      stream_(std::move(spawned.socket)) {}

bool HelperProcess::end() {
    held_.reset();
    if (process_ < 0) return true;
    if (!std::exchange(isKilled_, true)) {
        ::kill(process_, SIGKILL);
        waitForEnd(process_);
    }
    const ::pid_t reaped = ::waitpid(process_, nullptr, WNOHANG);
    // If it is no child any more, somebody else has reaped it.
    if (reaped == process_ || (reaped < 0 && errno == ECHILD)) process_ = -1;
    return process_ < 0;
}

std::optional<std::chrono::nanoseconds> HelperProcess::cpuTime() const {
    ::clockid_t clock{};
    ::timespec time{};
    if (::clock_getcpuclockid(process_, &clock) != 0 || ::clock_gettime(clock, &time) != 0) {
        return std::nullopt;
    }
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void HelperProcess::allowCpuTime(std::chrono::nanoseconds more) const {
    const auto taken = cpuTime();
    if (!taken) return;
    const auto total = std::chrono::ceil<std::chrono::seconds>(*taken + more);
    // The hard limit stays, since only it could not be raised again.
    struct ::rlimit limit {};
    if (::prlimit(process_, RLIMIT_CPU, nullptr, &limit) != 0) return;
    limit.rlim_cur = static_cast<::rlim_t>(total.count());
    if (limit.rlim_cur < limit.rlim_max) ::prlimit(process_, RLIMIT_CPU, &limit, nullptr);
}

}  // namespace marquell::platform
