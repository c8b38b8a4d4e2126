// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailureCollector.h"

#include "Messages.h"
#include "platform/ReadFailures.h"

namespace marquell::apps {

FailureCollector::FailureCollector() {
    platform::setReadFailureListener([this](std::string_view path, const std::error_code& why) {
        const std::lock_guard lock(mutex_);
        failures_.emplace(path, why.message());
    });
}

FailureCollector::~FailureCollector() { platform::setReadFailureListener({}); }

bool FailureCollector::report() const {
    const std::lock_guard lock(mutex_);
    for (const auto& [path, reason] : failures_) {
        printMessage(quoted(path) + ": " + reason);
    }
    return !failures_.empty();
}

}  // namespace marquell::apps
