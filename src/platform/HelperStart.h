// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/HelperHealth.h"
#include "platform/HelperPool.h"
#include "platform/HelperProcess.h"

namespace marquell::platform {

/// The longest time between two looks at whether the caller still wants what it asked for.
inline constexpr auto longestHelperWait = std::chrono::milliseconds(100);

/// Starts a helper and waits until it is ready, at most startLimit. Waits a little, too, for a
/// system that has no process or descriptor to spare. Null if it failed, which `health` is told
/// unless others are ready and the system is only short of something; or if the caller wanted to
/// stop, which `isStopped` says.
std::unique_ptr<HelperProcess> startHelper(const HelperPool::Settings& settings,
                                           HelperHealth& health,
                                           const std::function<bool()>& shouldStop,
                                           bool& isStopped);

}  // namespace marquell::platform
