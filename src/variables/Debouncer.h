// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace marquell::variables {

/// Of a burst of calls, runs the last action only, on the main queue, when no further call came for
/// `delay`. What is pending when the debouncer goes away does not run. Main thread only.
class Debouncer {
public:
    explicit Debouncer(std::chrono::duration<double> delay) : delay_(delay) {}

    void run(std::function<void()> action);

private:
    const std::chrono::duration<double> delay_;
    std::shared_ptr<std::function<void()>> workItem_;
};

}  // namespace marquell::variables
