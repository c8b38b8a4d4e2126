// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperSpawn.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "platform/HelperProtocol.h"

namespace marquell::platform {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int lastSilencedDescriptor = STDOUT_FILENO;  // reports go to standard error
#else
constexpr int lastSilencedDescriptor = STDERR_FILENO;
#endif

/// The helper's ends of the socket and the lifeline.
struct HelperEnds {
    FileDescriptor socket;
    FileDescriptor lifeline;
};

/// Away from the numbers that the helper's descriptors get: setting up one would close the other,
/// and a descriptor copied onto itself would still be closed at the start.
FileDescriptor awayFromHelpers(const FileDescriptor& descriptor) {
    return FileDescriptor(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, helperLifeline + 1));
}

int openEnds(SpawnedHelper& helper, HelperEnds& ends) {
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0) return errno;
    helper.socket = FileDescriptor(pair[0]);
    const FileDescriptor socket(pair[1]);
    if (::fcntl(helper.socket.get(), F_SETFL, O_NONBLOCK) != 0) return errno;
    if (::pipe2(pair.data(), O_CLOEXEC) != 0) return errno;
    const FileDescriptor lifeline(pair[0]);
    helper.lifeline = FileDescriptor(pair[1]);
    ends.socket = awayFromHelpers(socket);
    if (!ends.socket.isOpen()) return errno;
    ends.lifeline = awayFromHelpers(lifeline);
    return ends.lifeline.isOpen() ? 0 : errno;
}

/// What posix_spawn is to do beside starting a program.
class Preparation {
public:
    Preparation() {
        note(::posix_spawn_file_actions_init(&actions_));
        note(::posix_spawnattr_init(&attributes_));
    }
    Preparation(const Preparation&) = delete;
    Preparation& operator=(const Preparation&) = delete;
    ~Preparation() {
        ::posix_spawnattr_destroy(&attributes_);
        ::posix_spawn_file_actions_destroy(&actions_);
    }

    /// Returns 0 or errno.
    int setUp(const HelperEnds& ends) {
        for (int standard = 0; standard <= lastSilencedDescriptor; ++standard) {
            note(::posix_spawn_file_actions_addopen(&actions_, standard, "/dev/null", O_RDWR, 0));
        }
        note(::posix_spawn_file_actions_adddup2(&actions_, ends.socket.get(), helperSocket));
        note(::posix_spawn_file_actions_adddup2(&actions_, ends.lifeline.get(), helperLifeline));
        note(::posix_spawn_file_actions_addclosefrom_np(&actions_, helperLifeline + 1));
        ::sigset_t signals{};
        ::sigemptyset(&signals);
        note(::posix_spawnattr_setsigmask(&attributes_, &signals));
        ::sigfillset(&signals);
        note(::posix_spawnattr_setsigdefault(&attributes_, &signals));
        note(::posix_spawnattr_setpgroup(&attributes_, 0));
        note(::posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP));
        return error_;
    }

    int start(SpawnedHelper& helper, const std::string& program, char* const* arguments,
              char* const* environment) const {
        return ::posix_spawn(&helper.process, program.c_str(), &actions_, &attributes_, arguments,
                             environment);
    }

private:
    void note(int error) {
        if (error_ == 0) error_ = error;
    }

    ::posix_spawn_file_actions_t actions_{};
    ::posix_spawnattr_t attributes_{};
    int error_ = 0;
};

/// As the system takes them: pointers, the last one null. The texts must live as long.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers(texts.size() + 1);
    std::transform(texts.begin(), texts.end(), pointers.begin(),
                   [](std::string& text) { return text.data(); });
    return pointers;
}

/// Only what tells a sanitizer how to report.
std::vector<std::string> helperEnvironment() {
    std::vector<std::string> environment;
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        const char* value = std::getenv(name);
        if (value != nullptr) environment.push_back(std::string(name) + "=" + value);
    }
    return environment;
}

}  // namespace

int spawnHelper(const std::string& program, const std::vector<std::string>& arguments,
                SpawnedHelper& helper) {
    HelperEnds ends;
    int error = openEnds(helper, ends);
    if (error != 0) return error;
    Preparation preparation;
    error = preparation.setUp(ends);
    if (error != 0) return error;
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = helperEnvironment();
    return preparation.start(helper, program, pointersTo(words).data(),
                             pointersTo(environment).data());
}

}  // namespace marquell::platform
