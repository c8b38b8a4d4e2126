// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/KeyValueObservable.h"
#include "variables/EndOfLifeBag.h"

namespace marquell::variables {

/// Observes a key of an object for as long as it lives, and keeps the object alive meanwhile. The
/// reacting function runs on the thread that made the change and asks the object for the value.
/// It may end the responder.
class KVOResponder {
public:
    using ReactingFunction =
        std::function<void(platform::KeyValueObservable& object, const std::string& keyPath)>;

    /// `hot`: the function is also called once right away.
    KVOResponder(std::string keyPath, std::shared_ptr<platform::KeyValueObservable> object,
                 bool hot, ReactingFunction reactingFunc);

private:
    const std::string keyPath_;
    const std::shared_ptr<platform::KeyValueObservable> observedObject_;
    EndOfLifeBag endOfLifeBag_;
};

}  // namespace marquell::variables
