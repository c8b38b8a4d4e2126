// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/LightReaders.h"

#include <algorithm>
#include <thread>

namespace marquell::metadata {

platform::HelperPool& lightReaders() {
    // Never destroyed: the processes end with this one in any case.
    static auto* const pool = [] {
        constexpr unsigned most = 4;
        platform::HelperPool::Settings settings;
        settings.program = platform::helperProgramPath("marquell-read-light");
        settings.width = std::clamp(std::thread::hardware_concurrency(), 1U, most);
        return new platform::HelperPool(settings);
    }();
    return *pool;
}

}  // namespace marquell::metadata
