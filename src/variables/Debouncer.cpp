// SPDX-License-Identifier: GPL-3.0-or-later
#include "variables/Debouncer.h"

#include <utility>

#include "platform/MainQueue.h"

namespace marquell::variables {

void Debouncer::run(std::function<void()> action) {
    // The item before it has no owner any more, which cancels it.
    workItem_ = std::make_shared<std::function<void()>>(std::move(action));
    platform::MainQueue* queue = platform::MainQueue::installed();
    if (queue == nullptr) return;
    queue->postAfter(delay_, [weakItem = std::weak_ptr(workItem_)] {
        if (const auto item = weakItem.lock()) (*item)();
    });
}

}  // namespace marquell::variables
