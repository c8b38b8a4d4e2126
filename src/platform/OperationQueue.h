// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace marquell::platform {

/// A piece of work for an OperationQueue.
class Operation {
public:
    virtual ~Operation() = default;

    /// The work; runs once, on a thread of the queue.
    virtual void main() = 0;

    /// Asks the operation to stop. What it makes of that is its own affair. Any thread.
    void cancel() { cancelled_.store(true, std::memory_order_relaxed); }
    bool isCancelled() const { return cancelled_.load(std::memory_order_relaxed); }

    /// Like cancel(), but nobody is left to take a result: every operation ends as soon as it can.
    void abandon() {
        cancel();
        abandoned_.store(true, std::memory_order_relaxed);
    }
    bool isAbandoned() const { return abandoned_.load(std::memory_order_relaxed); }

    /// Whether it was cancelled or another operation waits behind it.
    bool isSuperseded() const { return isCancelled() || followed_.load(std::memory_order_relaxed); }

private:
    friend class OperationQueue;

    std::atomic<bool> followed_ = false;
    std::atomic<bool> cancelled_ = false;
    std::atomic<bool> abandoned_ = false;
};

/// Runs operations in the order of adding, one at a time, on a thread of its own that starts with
/// the first operation. Destroying the queue abandons what it holds and waits for what runs.
class OperationQueue {
public:
    /// `name` shows in debuggers and process lists; the kernel keeps its first 15 bytes.
    explicit OperationQueue(std::string name);
    ~OperationQueue();
    OperationQueue(const OperationQueue&) = delete;
    OperationQueue& operator=(const OperationQueue&) = delete;

    /// False if there is no thread and the system refuses one; the operation is then dropped.
    bool addOperation(std::shared_ptr<Operation> operation);
    void cancelAllOperations();

    /// Called on the queue's thread each time that the last operation has ended and none is left.
    /// To be set before the first operation is added.
    void setDrainedHandler(std::function<void()> handler) { drained_ = std::move(handler); }

    /// Shows `inspect` the running operation, if any, and the waiting ones behind it. They can't
    /// end meanwhile, so it has to be short and to leave the queue alone.
    void inspect(
        const std::function<void(std::span<const std::shared_ptr<Operation>>)>& inspect) const;

    bool isEmpty() const;

private:
    void work();
    bool removeFirst();
    std::shared_ptr<Operation> takeNext();

    const std::string name_;
    std::function<void()> drained_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool closing_ = false;                                // guarded by mutex_
    std::vector<std::shared_ptr<Operation>> operations_;  // guarded by mutex_, running one first
    std::vector<std::thread> thread_;                     // none or one
};

}  // namespace marquell::platform
