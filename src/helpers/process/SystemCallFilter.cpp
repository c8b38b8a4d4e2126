// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/process/SystemCallFilter.h"

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
#include <vector>

#include "helpers/process/RefusedCalls.h"
#include "platform/HelperProtocol.h"

namespace marquell::helpers {
namespace {

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

/// What a descriptor can be made to do: to signal any process, with any signal, and to lock.
constexpr std::array refusedFileCommands = {F_SETOWN, F_SETOWN_EX, F_SETSIG,     F_SETFL,   F_SETLK,
                                            F_SETLKW, F_OFD_SETLK, F_OFD_SETLKW, F_SETLEASE};

/// No code but what was loaded, and no memory that the limits do not count.
constexpr std::array refusedMappings = {
    hasBits(2, PROT_EXEC), hasBits(3, MAP_SHARED | MAP_ANONYMOUS), hasBits(3, MAP_GROWSDOWN)};

std::vector<RefusedArgument> refusedArguments() {
    const auto self = static_cast<unsigned>(::getpid());
    constexpr auto lifeline = static_cast<unsigned>(platform::helperLifeline);
    std::vector<RefusedArgument> arguments = {
        // abort() signals its own process.
        {"kill", isNot(0, self)},
        {"tgkill", isNot(0, self)},
        {"tkill", isNot(0, self)},
        // Closed, the lifeline would not end this process with the program.
        {"close", integerIs(0, lifeline)},
        {"dup2", integerIs(0, lifeline)},
        {"dup2", integerIs(1, lifeline)},
        {"dup3", integerIs(0, lifeline)},
        {"dup3", integerIs(1, lifeline)},
        // Of its own limits it may only ask.
        {"prlimit64", isNot(0, 0)},
        {"prlimit64", isNot(2, 0)},
        // No code but what was loaded.
        {"mprotect", hasBits(2, PROT_EXEC)},
        {"pkey_mprotect", hasBits(2, PROT_EXEC)},
    };
    // 32-bit machines have some calls twice.
    for (const char* call : {"fcntl", "fcntl64"}) {
        for (const int command : refusedFileCommands) {
            arguments.push_back({call, integerIs(1, static_cast<unsigned>(command))});
        }
    }
    for (const char* call : {"mmap", "mmap2"}) {
        for (const scmp_arg_cmp& when : refusedMappings) arguments.push_back({call, when});
    }
    return arguments;
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
    // The table takes the means to add another filter, so it comes last.
    const bool isFiltered = addRules(filter) && refuseNewerCalls() && ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    return isFiltered;
}

}  // namespace marquell::helpers
