// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

namespace marquell::platform {

/// Threads that a stage may use at once for walking, sort keys and extraction ahead of it: the
/// number of cores until set. The results never depend on it.
unsigned workerCount();

/// `count` is at least 1. Takes effect for work begun afterwards.
void setWorkerCount(unsigned count);

/// Starts a thread for `work` and adds it to `threads`. False if the system refuses one, as it does
/// at its limits; the caller then does without.
bool startThread(std::vector<std::thread>& threads, std::function<void()> work);

/// Runs `work(begin, end)` over consecutive ranges that cover 0 to `count`, on up to workerCount()
/// threads, the caller's among them. Ranges have at least `grain` items, so that little work stays
/// on the caller's thread.
void forRanges(std::size_t count, std::size_t grain,
               const std::function<void(std::size_t begin, std::size_t end)>& work);

}  // namespace marquell::platform
