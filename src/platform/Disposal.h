// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <utility>

namespace marquell::platform {

/// Drops the reference on a thread kept for that, one after the other. Giving back a list of
/// millions takes a tenth of a second and more, which neither the main thread nor a stage has to
/// spare.
void disposeOnWorker(std::shared_ptr<void> object);

/// An object that is destroyed by disposeOnWorker, whichever thread drops the last reference.
template <typename T, typename... Arguments>
std::shared_ptr<T> makeDisposedOnWorker(Arguments&&... arguments) {
    return {new T(std::forward<Arguments>(arguments)...),
            [](T* object) { disposeOnWorker(std::shared_ptr<T>(object)); }};
}

}  // namespace marquell::platform
