// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperHealth.h"

#include <cstddef>
#include <utility>

namespace marquell::platform {
namespace {

constexpr int toleratedFailedStarts = 2;
constexpr std::size_t toleratedStuck = 3;

}  // namespace

void HelperHealth::started(std::uint32_t protections) {
    const std::lock_guard lock(mutex_);
    hasStarted_ = true;
    protections_ &= protections;
}

void HelperHealth::didNotStart() {
    if (failedStarts_.fetch_add(1) >= toleratedFailedStarts) isUnavailable_ = true;
}

void HelperHealth::bury(std::unique_ptr<HelperProcess> process) {
    if (process == nullptr || process->end()) return;
    const std::lock_guard lock(mutex_);
    stuck_.push_back(std::move(process));
    if (stuck_.size() > toleratedStuck) isUnavailable_ = true;
}

bool HelperHealth::buryRest() {
    const std::lock_guard lock(mutex_);
    std::erase_if(stuck_, [](const auto& process) { return process->end(); });
    return !stuck_.empty();
}

std::uint32_t HelperHealth::protections() const {
    const std::lock_guard lock(mutex_);
    return hasStarted_ ? protections_ : 0;
}

}  // namespace marquell::platform
