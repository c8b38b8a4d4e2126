// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace marquell::variables {

/// The listeners of a variable. They stay as long as the variable and run on the thread that
/// notifies, in the order of registration; none can be removed.
///
/// A notification may meet itself: a listener may add listeners, which wait for the next
/// notification; set the variable, whose notification then runs in full inside; or end the
/// variable, after which no further listener is called.
template <typename T>
class ListenerList {
public:
    using Listener = std::function<void(const T& value)>;

    void add(Listener listener) {
        listeners_->push_back(std::make_shared<const Listener>(std::move(listener)));
    }

    /// Calls each listener with what `currentValue` returns at its turn, so that after nested
    /// notifications too its last call carries the newest value.
    template <typename CurrentValue>
    void notify(const CurrentValue& currentValue) const {
        const std::weak_ptr<const Listeners> alive = listeners_;
        const std::size_t count = listeners_->size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto listeners = alive.lock();
            if (listeners == nullptr) return;
            const auto listener = (*listeners)[i];
            (*listener)(currentValue());
        }
    }

private:
    using Listeners = std::vector<std::shared_ptr<const Listener>>;

    std::shared_ptr<Listeners> listeners_ = std::make_shared<Listeners>();
};

}  // namespace marquell::variables
