// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {

/// A wall that is filled by a dark view, on which its bricks lie; the ground is dimmer while the
/// window is not the active one. Dark whatever the system is.
class WallWithSpecialEffectsView : public Wall {
public:
    explicit WallWithSpecialEffectsView(QWidget* parent = nullptr);
    QWidget* effectView() const { return effectView_; }

private:
    QWidget* const effectView_;
};

/// The same with a view that paints nothing and lies on what the wall lies on.
class WallWithUnconfiguredSpecialEffectsView : public Wall {
public:
    explicit WallWithUnconfiguredSpecialEffectsView(QWidget* parent = nullptr);
    QWidget* effectView() const { return effectView_; }

private:
    QWidget* const effectView_;
};

}  // namespace marquell::toolkit
