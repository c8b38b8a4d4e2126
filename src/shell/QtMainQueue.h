// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <chrono>
#include <functional>

#include "platform/MainQueue.h"

namespace marquell::shell {

/// The main queue of a program with Qt's event loop: tasks run from it, also from a nested one. To
/// be made and to go away on the main thread. What hasn't run when it goes away never runs, and it
/// is no longer the installed queue then; no other thread may be posting to it at that moment.
///
/// An exception that leaves a task is logged and ends there, as Qt can't take any.
class QtMainQueue : public platform::MainQueue {
public:
    QtMainQueue() = default;
    QtMainQueue(const QtMainQueue&) = delete;
    QtMainQueue& operator=(const QtMainQueue&) = delete;
    ~QtMainQueue() override;

    void post(std::function<void()> task) override;
    void postAfter(std::chrono::duration<double> delay, std::function<void()> task) override;

private:
    QObject context_;  // what waits for its turn goes away with it
};

}  // namespace marquell::shell
