// SPDX-License-Identifier: GPL-3.0-or-later
#include "SlowDisk.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <thread>

namespace marquell::bench {
namespace {

constexpr std::size_t bytesPerMillisecond = 50'000;
constexpr std::size_t largestPiece = 20 * bytesPerMillisecond;
constexpr std::chrono::milliseconds syncTime(500);

std::atomic<bool> isSlow = false;

bool isOnSlowDisk(int descriptor) {
    struct stat status = {};
    return isSlow && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/// The system's own function.
template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

SlowDisk::SlowDisk() { isSlow = true; }

SlowDisk::~SlowDisk() { isSlow = false; }

}  // namespace marquell::bench

// These stand in for the functions of the C library in all of the program.

ssize_t write(int descriptor, const void* bytes, size_t count) {
    static auto* const writeOn = marquell::bench::next<decltype(write)>("write");
    if (!marquell::bench::isOnSlowDisk(descriptor)) return writeOn(descriptor, bytes, count);
    count = std::min(count, marquell::bench::largestPiece);
    std::this_thread::sleep_for(
        std::chrono::milliseconds(count / marquell::bench::bytesPerMillisecond));
    return writeOn(descriptor, bytes, count);
}

int fsync(int descriptor) {
    static auto* const sync = marquell::bench::next<decltype(fsync)>("fsync");
    if (marquell::bench::isOnSlowDisk(descriptor)) {
        std::this_thread::sleep_for(marquell::bench::syncTime);
    }
    return sync(descriptor);
}
