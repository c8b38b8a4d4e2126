// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyleOption>
#include <utility>

namespace marquell::gallery {

enum class Pose { normal, hover, pressed, focus, disabled };

/// A brick that looks as if mouse or keyboard were at it. `Option` is what its control's
/// initStyleOption fills.
template <typename Brick, typename Option>
class Posed : public Brick {
public:
    template <typename... Arguments>
    explicit Posed(Pose pose, Arguments&&... arguments)
        : Brick(std::forward<Arguments>(arguments)...), pose_(pose) {
        this->setEnabled(pose != Pose::disabled);
    }

protected:
    void initStyleOption(Option* option) const override {
        Brick::initStyleOption(option);
        option->state.setFlag(QStyle::State_MouseOver,
                              pose_ == Pose::hover || pose_ == Pose::pressed);
        option->state.setFlag(QStyle::State_Sunken, pose_ == Pose::pressed);
    }

private:
    const Pose pose_;
};

/// Draws the ring about a view as if it had the focus, for as long as the view lives. The view has
/// its parent by then.
void poseWithRing(QWidget* view);

}  // namespace marquell::gallery
