// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailureCollector.h"

#include <cstring>

#include "Messages.h"
#include "platform/ReadFailures.h"

namespace marquell::apps {

FailureCollector::FailureCollector() {
    platform::setReadFailureListener([this](std::string_view path, int error) {
        const std::lock_guard lock(mutex_);
        failures_.emplace(path, error);
    });
}

FailureCollector::~FailureCollector() { platform::setReadFailureListener({}); }

bool FailureCollector::report() const {
    const std::lock_guard lock(mutex_);
    for (const auto& [path, error] : failures_) {
        printMessage(quoted(path) + ": " + std::strerror(error));
    }
    return !failures_.empty();
}

}  // namespace marquell::apps
