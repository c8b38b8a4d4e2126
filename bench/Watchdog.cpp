// SPDX-License-Identifier: GPL-3.0-or-later
#include "Watchdog.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <array>
#include <cstdlib>

namespace marquell::bench {
namespace {

constexpr std::chrono::milliseconds pause(1);
constexpr double nanosecondsPerMillisecond = 1e6;

}  // namespace

Watchdog::Watchdog()
    : schedule_(::open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC)),
      thread_([this] { ask(); }) {}

Watchdog::~Watchdog() {
    stops_ = true;
    thread_.join();
}

double Watchdog::waitedForCore() const {
    // Nanoseconds on a core and of waiting for one, and the number of turns.
    std::array<char, 128> text{};
    if (::pread(schedule_.get(), text.data(), text.size() - 1, 0) <= 0) return 0;
    char* waited = nullptr;
    static_cast<void>(std::strtoll(text.data(), &waited, 10));
    return std::strtod(waited, nullptr) / nanosecondsPerMillisecond;
}

void Watchdog::ask() {
    while (!stops_) {
        if (isAnswered_) {
            const std::lock_guard lock(mutex_);
            question_ = {Clock::now(), waitedForCore()};
            isAnswered_ = false;
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
        std::this_thread::sleep_for(pause);
    }
}

/// The caller holds the lock.
Watchdog::Answer Watchdog::answerNow() const {
    const std::chrono::duration<double, std::milli> took = Clock::now() - question_.asked;
    return {took.count(), waitedForCore() - question_.waitedBefore};
}

bool Watchdog::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    const std::lock_guard lock(mutex_);
    answers_.push_back(answerNow());
    isAnswered_ = true;
    return true;
}

Watchdog::Answers Watchdog::takeAnswers() {
    const std::lock_guard lock(mutex_);
    if (!isAnswered_) {
        answers_.push_back(answerNow());
        question_ = {Clock::now(), waitedForCore()};
    }
    std::vector<double> times;
    Answers result;
    for (const Answer& answer : answers_) {
        times.push_back(answer.took);
        result.longestAtWork = std::max(result.longestAtWork, answer.took - answer.waited);
    }
    answers_.clear();
    if (times.empty()) return result;
    std::sort(times.begin(), times.end());
    result.longest = times.back();
    result.p99 = times[times.size() * 99 / 100];
    return result;
}

}  // namespace marquell::bench
