// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperPool.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/HelperGivenUpFiles.h"
#include "platform/HelperHealth.h"
#include "platform/HelperReading.h"
#include "platform/HelperStart.h"
#include "platform/Workers.h"

namespace marquell::platform {

class HelperPool::Implementation {
public:
    explicit Implementation(Settings settings) : settings_(std::move(settings)) {}
    Implementation(const Implementation&) = delete;
    Implementation& operator=(const Implementation&) = delete;
    ~Implementation();

    void read(std::span<HelperJob> jobs, const Receiver& receive,
              const std::function<bool()>& shouldStop);

    std::optional<std::uint32_t> protections();
    void endIdle();

    const HelperHealth& health() const { return health_; }
    const std::string& program() const { return settings_.program; }

private:
    using Clock = std::chrono::steady_clock;

    struct IdleProcess {
        std::unique_ptr<HelperProcess> process;
        Clock::time_point since;
    };

    /// The right to run one of the pool's processes, given back at the end of its life.
    class Turn {
    public:
        explicit Turn(Implementation& pool) : pool_(pool) {}
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        ~Turn() { pool_.endTurn(std::move(process)); }

        std::unique_ptr<HelperProcess> process;

    private:
        Implementation& pool_;
    };

    bool waitForTurn(const std::function<bool()>& shouldStop);
    std::unique_ptr<HelperProcess> takeIdle();
    void endTurn(std::unique_ptr<HelperProcess> process);
    bool hasJanitor();
    void endIdleProcesses();
    std::unique_ptr<HelperProcess> takeExpired();

    const Settings settings_;
    HelperHealth health_;
    HelperGivenUpFiles givenUp_;
    std::mutex mutex_;
    std::condition_variable turnEnded_;
    std::condition_variable janitorNeeded_;
    // Guarded by mutex_:
    std::size_t turns_ = 0;
    std::deque<IdleProcess> idle_;  // the longest idle first
    bool isEnding_ = false;
    bool isJanitorAsleep_ = false;      // until there is an idle process
    std::vector<std::thread> janitor_;  // ends idle processes; at most one
};

HelperPool::Implementation::~Implementation() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    janitorNeeded_.notify_all();
    for (std::thread& thread : janitor_) thread.join();
}

void HelperPool::Implementation::read(std::span<HelperJob> jobs, const Receiver& receive,
                                      const std::function<bool()>& shouldStop) {
    HelperReading reading(settings_, health_, givenUp_, jobs, receive, shouldStop);
    if (!reading.begin()) return;
    if (!waitForTurn(shouldStop)) return reading.endAll(HelperOutcome::stopped);
    Turn turn(*this);
    turn.process = takeIdle();
    reading.run(turn.process, [this] { return takeIdle(); });
}

std::optional<std::uint32_t> HelperPool::Implementation::protections() {
    constexpr auto never = [] { return false; };
    waitForTurn(never);
    Turn turn(*this);
    bool isStopped = false;
    while (!turn.process && !health_.isUnavailable()) {
        turn.process = takeIdle();
        if (!turn.process) turn.process = startHelper(settings_, health_, never, isStopped);
    }
    if (!turn.process) return std::nullopt;
    return health_.protections();
}

void HelperPool::Implementation::endIdle() {
    std::deque<IdleProcess> idle;
    {
        const std::lock_guard lock(mutex_);
        idle.swap(idle_);
    }
    for (IdleProcess& each : idle) health_.bury(std::move(each.process));
}

/// False if the caller wants no more.
bool HelperPool::Implementation::waitForTurn(const std::function<bool()>& shouldStop) {
    std::unique_lock lock(mutex_);
    while (turns_ >= std::max<std::size_t>(settings_.width, 1)) {
        turnEnded_.wait_for(lock, longestHelperWait);
        lock.unlock();
        if (shouldStop()) return false;
        lock.lock();
    }
    ++turns_;
    return true;
}

/// Null if there is none that can go on.
std::unique_ptr<HelperProcess> HelperPool::Implementation::takeIdle() {
    std::unique_ptr<HelperProcess> process;
    {
        const std::lock_guard lock(mutex_);
        if (idle_.empty()) return nullptr;
        process = std::move(idle_.back().process);
        idle_.pop_back();
    }
    // It may have ended while idle, or said what nobody asked; neither is any file's fault.
    HelperStream& stream = process->stream();
    if (stream.receive() && stream.isSettled()) return process;
    health_.bury(std::move(process));
    return nullptr;
}

void HelperPool::Implementation::endTurn(std::unique_ptr<HelperProcess> process) {
    // Unanswered requests stay behind when a receiver throws.
    const bool isOfUse = process && process->stream().isSettled() && !health_.isUnavailable();
    if (!isOfUse) health_.bury(std::exchange(process, nullptr));
    {
        const std::lock_guard lock(mutex_);
        --turns_;
        if (isOfUse && hasJanitor())
            idle_.push_back({std::exchange(process, nullptr), Clock::now()});
        if (std::exchange(isJanitorAsleep_, false)) janitorNeeded_.notify_one();
    }
    turnEnded_.notify_one();
    health_.bury(std::move(process));
}

/// Starts the janitor if there is none yet. False if the system has no thread for it.
bool HelperPool::Implementation::hasJanitor() {
    return !janitor_.empty() || startThread(janitor_, [this] { endIdleProcesses(); });
}

void HelperPool::Implementation::endIdleProcesses() {
    std::unique_lock lock(mutex_);
    while (!isEnding_) {
        auto process = takeExpired();
        lock.unlock();
        const bool isMoreExpired = process != nullptr;
        health_.bury(std::move(process));
        const bool isAnyStuck = health_.buryRest();
        lock.lock();
        if (isMoreExpired || isEnding_) continue;
        if (!idle_.empty()) {
            janitorNeeded_.wait_until(lock, idle_.front().since + settings_.idleLimit);
        } else if (isAnyStuck) {
            janitorNeeded_.wait_for(lock, settings_.idleLimit);
        } else {
            isJanitorAsleep_ = true;
            janitorNeeded_.wait(lock);
        }
    }
}

/// With the lock held.
std::unique_ptr<HelperProcess> HelperPool::Implementation::takeExpired() {
    if (idle_.empty() || Clock::now() < idle_.front().since + settings_.idleLimit) return nullptr;
    auto process = std::move(idle_.front().process);
    idle_.pop_front();
    return process;
}

HelperPool::HelperPool(Settings settings)
    : implementation_(std::make_unique<Implementation>(std::move(settings))) {}

HelperPool::~HelperPool() = default;

void HelperPool::read(std::span<HelperJob> jobs, const Receiver& receive,
                      const std::function<bool()>& shouldStop) {
    implementation_->read(jobs, receive, shouldStop);
}

bool HelperPool::isUnavailable() const { return implementation_->health().isUnavailable(); }

const std::string& HelperPool::program() const { return implementation_->program(); }

std::optional<std::uint32_t> HelperPool::protections() { return implementation_->protections(); }

void HelperPool::endIdle() { implementation_->endIdle(); }

}  // namespace marquell::platform
