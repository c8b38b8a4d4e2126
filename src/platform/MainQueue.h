// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace marquell::platform {

/// Tasks for the interface's thread, run there one after the other in the order of posting. The
/// program has at most one such queue; the window brings the one of its event loop.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// May be called from any thread; never runs the task at once.
    virtual void post(std::function<void()> task) = 0;

    /// The task runs when `delay` has passed. Main thread only.
    virtual void postAfter(std::chrono::duration<double> delay, std::function<void()> task) = 0;

    /// The installed queue; null in a program without an interface, where nobody waits for tasks.
    static MainQueue* installed();

    /// To be called while no other thread of ours runs. The caller keeps the queue alive.
    static void install(MainQueue* queue);
};

/// A main queue whose owner runs its tasks by hand, and moves its time on.
class PumpedMainQueue : public MainQueue {
public:
    void post(std::function<void()> task) override;
    void postAfter(std::chrono::duration<double> delay, std::function<void()> task) override;

    /// Runs all tasks but those that wait for their time, also those that they post. Returns how
    /// many ran.
    std::size_t drain();

    /// Runs what is due within the next `time`, in order.
    void advance(std::chrono::duration<double> time);

private:
    using Seconds = std::chrono::duration<double>;

    Seconds now_{0};                                         // main thread only
    std::multimap<Seconds, std::function<void()>> waiting_;  // main thread only; by due time
    std::mutex mutex_;
    std::vector<std::function<void()>> tasks_;  // guarded by mutex_
};

}  // namespace marquell::platform
