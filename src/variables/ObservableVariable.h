// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "variables/ListenerList.h"
#include "variables/VariableTypes.h"

namespace marquell::variables {

/// The listening half of a variable of the given interface.
template <typename Interface>
class ObservableVariable : public Interface {
public:
    using T = typename Interface::Value;
    using typename Interface::Listener;

    void addHotListener(Listener listener) override {
        changeListeners_.add(listener);
        listener(this->value());
    }

    void addColdListener(Listener listener) override { changeListeners_.add(std::move(listener)); }

protected:
    void notifyListeners() const {
        changeListeners_.notify([this] { return this->value(); });
    }

private:
    ListenerList<T> changeListeners_;
};

}  // namespace marquell::variables
