// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/QtMainQueue.h"

#include <QDebug>
#include <QMetaObject>
#include <QTimer>
#include <exception>
#include <utility>

#include "shell/TimerInterval.h"

namespace marquell::shell {
namespace {

void run(const std::function<void()>& task) {
    try {
        task();
    } catch (const std::exception& error) {
        qCritical("A task of the main queue failed: %s", error.what());
    } catch (...) {
        qCritical("A task of the main queue failed");
    }
}

}  // namespace

QtMainQueue::~QtMainQueue() {
    if (installed() == this) install(nullptr);
}

void QtMainQueue::post(std::function<void()> task) {
    QMetaObject::invokeMethod(
        &context_, [task = std::move(task)] { run(task); }, Qt::QueuedConnection);
}

void QtMainQueue::postAfter(std::chrono::duration<double> delay, std::function<void()> task) {
    QTimer::singleShot(timerInterval(delay), Qt::PreciseTimer, &context_,
                       [task = std::move(task)] { run(task); });
}

}  // namespace marquell::shell
