// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SettingsThread.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "platform/FolderWatch.h"
#include "platform/Path.h"
#include "platform/SettingsFile.h"
#include "platform/Workers.h"

namespace marquell::platform {
namespace {

using std::chrono::milliseconds;

constexpr auto savingDelay = milliseconds(20);      // for changes that come together
constexpr auto retryDelay = milliseconds(3000);     // after a save that failed
constexpr auto settlingDelay = milliseconds(50);    // for events that come together
constexpr auto rereadingDelay = milliseconds(500);  // where there are no events
constexpr auto never = std::chrono::steady_clock::time_point::max();

int millisecondsUntil(std::chrono::steady_clock::time_point due) {
    if (due == never) return -1;
    const auto rest = due - std::chrono::steady_clock::now();
    return static_cast<int>(
        std::max(std::chrono::ceil<milliseconds>(rest), milliseconds(0)).count());
}

void waitFor(int wakeUp, int events, int timeout) {
    std::array<pollfd, 2> descriptors = {{{wakeUp, POLLIN, 0}, {events, POLLIN, 0}}};
    ::poll(descriptors.data(), descriptors.size(), timeout);
    std::uint64_t count = 0;
    static_cast<void>(::eventfd_read(wakeUp, &count));
}

}  // namespace

/// What only the thread knows.
class SettingsThread::Loop {
public:
    explicit Loop(SettingsThread& owner)
        : owner_(owner),
          watch_(std::string(deletingLastPathComponent(owner.file_)),
                 {std::string(lastPathComponent(owner.file_)),
                  std::string(lastPathComponent(SettingsFile::lockOf(owner.file_)))}) {}

    void run() {
        while (!isStopping()) {
            renewWatch();
            waitFor(owner_.wakeUp_.get(), watch_.descriptor(), millisecondsUntil(nextDue()));
            if (watch_.takeEvents()) rereadBy(Clock::now() + settlingDelay);
            if (isStopping()) return;
            if (takeDueSave() && !owner_.work_.save()) saveBy(Clock::now() + retryDelay);
            if (Clock::now() >= rereadDue_) {
                rereadDue_ = never;
                owner_.work_.reread();
            }
        }
    }

private:
    bool isStopping() const {
        const std::lock_guard lock(owner_.mutex_);
        return owner_.isStopping_;
    }

    void renewWatch() {
        {
            const std::lock_guard lock(owner_.mutex_);
            if (!owner_.isWatching_) return;
        }
        const FolderWatch::Renewal renewal = watch_.renew();
        if (renewal == FolderWatch::Renewal::anew) rereadBy(Clock::now());
        if (renewal == FolderWatch::Renewal::refused) rereadBy(Clock::now() + rereadingDelay);
    }

    Clock::time_point nextDue() const {
        const std::lock_guard lock(owner_.mutex_);
        return std::min(owner_.saveDue_, rereadDue_);
    }

    bool takeDueSave() {
        const std::lock_guard lock(owner_.mutex_);
        if (Clock::now() < owner_.saveDue_) return false;
        owner_.saveDue_ = never;
        return true;
    }

    void saveBy(Clock::time_point time) {
        const std::lock_guard lock(owner_.mutex_);
        owner_.saveDue_ = std::min(owner_.saveDue_, time);
    }

    void rereadBy(Clock::time_point time) { rereadDue_ = std::min(rereadDue_, time); }

    SettingsThread& owner_;
    FolderWatch watch_;
    Clock::time_point rereadDue_ = never;
};

SettingsThread::SettingsThread(std::string file, Work work)
    : file_(std::move(file)), work_(std::move(work)) {}

bool SettingsThread::saveSoon() {
    const std::lock_guard lock(mutex_);
    if (!start()) return false;
    const Clock::time_point time = Clock::now() + savingDelay;
    if (time >= saveDue_) return true;
    saveDue_ = time;
    wake();
    return true;
}

bool SettingsThread::watch() {
    const std::lock_guard lock(mutex_);
    if (!start()) return false;
    isWatching_ = true;
    wake();
    return true;
}

void SettingsThread::stop() {
    std::vector<std::thread> thread;
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
        thread.swap(thread_);
    }
    if (!thread.empty()) wake();
    for (std::thread& each : thread) each.join();
}

bool SettingsThread::start() {
    if (isStopping_) return false;
    if (!thread_.empty()) return true;
    if (!wakeUp_.isOpen()) wakeUp_ = FileDescriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC));
    return wakeUp_.isOpen() && startThread(thread_, [this] { Loop(*this).run(); });
}

void SettingsThread::wake() const { static_cast<void>(::eventfd_write(wakeUp_.get(), 1)); }

}  // namespace marquell::platform
