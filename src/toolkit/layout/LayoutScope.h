// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <vector>

#include "toolkit/layout/LayoutConstraint.h"

namespace marquell::toolkit {

/// What a root has to place at one moment: the views below it that are not hidden, parents before
/// children, and the constraints that they and the root hold.
struct LayoutScope {
    std::vector<QWidget*> views;
    LayoutConstraints constraints;
};

/// Goes down from the root to controls, scroll areas, windows and the next roots; these belong to
/// the scope, what is inside them does not. Constraints whose views are gone, or whose first
/// item has left the container that holds them, are dropped.
LayoutScope scopeBelow(const QWidget* rootView);

}  // namespace marquell::toolkit
