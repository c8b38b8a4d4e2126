// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/OperationQueue.h"

#include <pthread.h>

#include <utility>

#include "platform/Workers.h"

namespace marquell::platform {

OperationQueue::OperationQueue(std::string name) : name_(std::move(name)) {}

OperationQueue::~OperationQueue() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
        for (const auto& operation : operations_) operation->abandon();
    }
    changed_.notify_all();
    for (std::thread& thread : thread_) thread.join();
}

bool OperationQueue::addOperation(std::shared_ptr<Operation> operation) {
    const std::lock_guard lock(mutex_);
    if (closing_) return true;  // as good as abandoned at once
    if (thread_.empty() && !startThread(thread_, [this] { work(); })) return false;
    if (!operations_.empty()) {
        operations_.back()->followed_.store(true, std::memory_order_relaxed);
    }
    operations_.push_back(std::move(operation));
    changed_.notify_all();
    return true;
}

void OperationQueue::cancelAllOperations() {
    const std::lock_guard lock(mutex_);
    for (const auto& operation : operations_) operation->cancel();
}

void OperationQueue::inspect(
    const std::function<void(std::span<const std::shared_ptr<Operation>>)>& inspect) const {
    const std::lock_guard lock(mutex_);
    inspect(operations_);
}

bool OperationQueue::isEmpty() const {
    const std::lock_guard lock(mutex_);
    return operations_.empty();
}

std::shared_ptr<Operation> OperationQueue::takeNext() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return closing_ || !operations_.empty(); });
    return closing_ ? nullptr : operations_.front();
}

void OperationQueue::work() {
    ::pthread_setname_np(::pthread_self(), name_.substr(0, 15).c_str());
    while (std::shared_ptr<Operation> operation = takeNext()) {
        operation->main();
        // Its end may take long, so it comes after the lock, and before anybody is told.
        const bool isDrained = removeFirst();
        operation.reset();
        if (isDrained && drained_) drained_();
    }
}

/// True if none is left.
bool OperationQueue::removeFirst() {
    const std::lock_guard lock(mutex_);
    operations_.erase(operations_.begin());
    return operations_.empty();
}

}  // namespace marquell::platform
