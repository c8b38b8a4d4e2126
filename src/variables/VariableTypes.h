// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace marquell::variables {

/// An observable value. Variables belong to the main thread, listeners included. Every set calls
/// the listeners, also one that changes nothing.
template <typename T>
class ReadOnlyVariableType {
public:
    using Value = T;
    using Listener = std::function<void(const T& value)>;

    virtual ~ReadOnlyVariableType() = default;

    virtual T value() const = 0;

    /// The listener is called once right away, and then at each change.
    virtual void addHotListener(Listener listener) = 0;

    /// The listener is first called at the next change.
    virtual void addColdListener(Listener listener) = 0;
};

template <typename T>
class ReadWriteVariableType : public ReadOnlyVariableType<T> {
public:
    virtual void setValue(T value) = 0;
};

}  // namespace marquell::variables
