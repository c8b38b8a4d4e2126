// SPDX-License-Identifier: GPL-3.0-or-later
#include "variables/KVOResponder.h"

#include <utility>

namespace marquell::variables {

KVOResponder::KVOResponder(std::string keyPath,
                           std::shared_ptr<platform::KeyValueObservable> object, bool hot,
                           ReactingFunction reactingFunc)
    : keyPath_(std::move(keyPath)), observedObject_(std::move(object)) {
    // The object holds this closure: a strong reference back would keep both for ever.
    const auto react = [keyPath = keyPath_, weakObject = std::weak_ptr(observedObject_),
                        reactingFunc = std::move(reactingFunc)] {
        if (const auto alive = weakObject.lock()) reactingFunc(*alive, keyPath);
    };
    const auto id = observedObject_->addObserver(keyPath_, react);
    endOfLifeBag_.closures.emplace_back([this, id] { observedObject_->removeObserver(id); });
    if (hot) react();
}

}  // namespace marquell::variables
