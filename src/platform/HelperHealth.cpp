// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperHealth.h"

#include <utility>

namespace marquell::platform {
namespace {

constexpr int toleratedFailedStarts = 1;
constexpr std::size_t countedDeaths = 20;
constexpr auto countedTime = std::chrono::seconds(60);
constexpr std::size_t toleratedStuck = 3;

}  // namespace

void HelperHealth::started(std::uint32_t protections) {
    const std::lock_guard lock(mutex_);
    failedStarts_ = 0;
    hasStarted_ = true;
    protections_ &= protections;
}

void HelperHealth::didNotStart() {
    const std::lock_guard lock(mutex_);
    if (++failedStarts_ > toleratedFailedStarts) isUnavailable_ = true;
}

void HelperHealth::died() {
    const std::lock_guard lock(mutex_);
    const auto now = std::chrono::steady_clock::now();
    deaths_.push_back({now, answers_});
    if (deaths_.size() > countedDeaths) deaths_.pop_front();
    if (deaths_.size() < countedDeaths || now - deaths_.front().time > countedTime) return;
    if (answers_ - deaths_.front().answersBefore < countedDeaths) isUnavailable_ = true;
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
