// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <utility>

#include "variables/ListenerList.h"

namespace marquell::toolkit {

/// Those who keep what the user does with a brick, such as bindings. They are told before the
/// brick calls its own function, which so finds kept what it reads.
template <typename Value>
class UserListeners {
public:
    /// The listener cannot be removed.
    void addUserListener(typename variables::ListenerList<Value>::Listener listener) {
        listeners_->add(std::move(listener));
    }

protected:
    UserListeners() = default;
    ~UserListeners() = default;

    /// False if a listener has ended the brick.
    [[nodiscard]] bool tellUserListeners(const Value& value) const {
        const std::weak_ptr<const variables::ListenerList<Value>> alive = listeners_;
        listeners_->notify([&value] { return value; });
        return !alive.expired();
    }

private:
    std::shared_ptr<variables::ListenerList<Value>> listeners_ =
        std::make_shared<variables::ListenerList<Value>>();
};

}  // namespace marquell::toolkit
