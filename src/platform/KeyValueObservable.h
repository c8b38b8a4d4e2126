// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace marquell::platform {

/// An object that tells of changes of its values, which go by keys.
class KeyValueObservable {
public:
    using Observer = std::function<void()>;
    using ObserverId = std::uint64_t;

    virtual ~KeyValueObservable() = default;

    /// `observer` is called after each change of the key, on the thread that made the change and
    /// before the changing call returns. Observers of a key are called in the order of their
    /// adding; one that is added during a notification waits for the next, and a change made by an
    /// observer is told in full before the notification goes on.
    virtual ObserverId addObserver(const std::string& keyPath, Observer observer) = 0;

    /// The observer is not called any more, also by a notification that is under way on this
    /// thread. One that is under way on another thread may still be inside the observer.
    virtual void removeObserver(ObserverId id) = 0;
};

}  // namespace marquell::platform
