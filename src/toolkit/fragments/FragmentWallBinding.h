// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <utility>

#include "toolkit/fragments/FragmentStackView.h"
#include "toolkit/fragments/FragmentWall.h"
#include "variables/AnyVariable.h"

namespace marquell::toolkit {

/// Shows or hides a fragment in its stack by the value of a variable, from activate() on for as
/// long as both the binding and the fragment live.
template <typename T>
class FragmentWallBinding {
public:
    using ShouldHideClosure = std::function<bool(const T& value)>;

    FragmentWallBinding(FragmentWall* fragmentWall, variables::AnyReadOnlyVariable<T> variable,
                        ShouldHideClosure shouldHideClosure)
        : state_(std::make_shared<State>(
              State{QPointer<FragmentWall>(fragmentWall), std::move(shouldHideClosure)})),
          variable_(std::move(variable)) {}

    /// The fragment has to be arranged in its stack by then.
    void activate() {
        if (std::exchange(isActive_, true)) return;
        // Listeners cannot be taken back: this one does nothing once the binding has gone.
        variable_.addHotListener([weakState = std::weak_ptr<const State>(state_)](const T& value) {
            if (const auto state = weakState.lock()) state->apply(value);
        });
    }

private:
    struct State {
        void apply(const T& value) const {
            if (fragmentWall == nullptr) return;
            auto* stack = dynamic_cast<FragmentStackView*>(fragmentWall->parentWidget());
            if (stack == nullptr) return;
            if (shouldHideClosure(value)) {
                stack->hideFragment(fragmentWall);
            } else {
                stack->showFragment(fragmentWall);
            }
        }

        QPointer<FragmentWall> fragmentWall;
        ShouldHideClosure shouldHideClosure;
    };

    const std::shared_ptr<const State> state_;
    const variables::AnyReadOnlyVariable<T> variable_;
    bool isActive_ = false;
};

}  // namespace marquell::toolkit
