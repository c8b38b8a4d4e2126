// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/FileReaders.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

namespace marquell::metadata {
namespace {

/// Those that were asked for.
std::array<std::atomic<platform::HelperPool*>, 2> made;

// Never destroyed: the processes end with this one in any case.
platform::HelperPool* madePool(const char* program) {
    constexpr unsigned most = 4;
    platform::HelperPool::Settings settings;
    settings.program = platform::helperProgramPath(program);
    settings.width = std::clamp(std::thread::hardware_concurrency(), 1U, most);
    return new platform::HelperPool(settings);
}

}  // namespace

platform::HelperPool& lightReaders() {
    static platform::HelperPool* const pool = made[0] = madePool("marquell-read-light");
    return *pool;
}

platform::HelperPool& heavyReaders() {
    static platform::HelperPool* const pool = made[1] = madePool("marquell-read-heavy");
    return *pool;
}

void endFileReaders() {
    for (const auto& pool : made) {
        if (pool != nullptr) pool.load()->endIdle();
    }
}

}  // namespace marquell::metadata
