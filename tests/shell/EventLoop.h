// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <chrono>
#include <functional>
#include <thread>

namespace marquell::tests {

/// Runs the event loop until the condition holds; whether it ever did.
inline bool waitUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds patience = std::chrono::seconds(20)) {
    const QDeadlineTimer deadline(patience);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// Runs the event loop for some time.
inline void runFor(std::chrono::milliseconds time) {
    waitUntil([] { return false; }, time);
}

}  // namespace marquell::tests
