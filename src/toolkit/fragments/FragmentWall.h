// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {

class FragmentStackView;

/// One self-contained band of a column of controls.
class FragmentWall : public Wall {
public:
    using Wall::Wall;

    /// Called once, right after the fragment was arranged in a stack.
    virtual void install(FragmentStackView* /*parentStackView*/) {}
};

}  // namespace marquell::toolkit
