// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/FileDescriptor.h"

namespace marquell::platform {

/// Has a settings file saved a moment after changes, and read again when somebody else may have
/// changed it, on a thread of its own that is started on first need.
class SettingsThread {
public:
    /// Both run on the thread, one after the other.
    struct Work {
        std::function<bool()> save;  ///< tried again after a while if it returns false
        std::function<void()> reread;
    };

    /// `file` is the path of the file.
    SettingsThread(std::string file, Work work);
    SettingsThread(const SettingsThread&) = delete;
    SettingsThread& operator=(const SettingsThread&) = delete;
    ~SettingsThread() { stop(); }

    // The next two are false if the system refuses a thread: then nothing will happen.

    /// There is something to save. What comes within the next moment is saved together with it.
    bool saveSoon();

    /// From now on the file is watched, and its folder made if it is gone.
    bool watch();

    /// Waits for the work that is under way; no other is begun.
    void stop();

private:
    using Clock = std::chrono::steady_clock;
    class Loop;

    bool start();
    void wake() const;

    const std::string file_;
    const Work work_;
    std::mutex mutex_;
    std::vector<std::thread> thread_;                       // guarded by mutex_; one or none
    FileDescriptor wakeUp_;                                 // set before the thread starts
    bool isStopping_ = false;                               // guarded by mutex_
    bool isWatching_ = false;                               // guarded by mutex_
    Clock::time_point saveDue_ = Clock::time_point::max();  // guarded by mutex_
};

}  // namespace marquell::platform
