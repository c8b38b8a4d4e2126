// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "toolkit/layout/LayoutFrames.h"
#include "toolkit/layout/StatedConstraints.h"
#include "toolkit/layout/ViewDemands.h"

namespace marquell::toolkit {

/// The equations of one root: keeps them in line with the views below it, and places the views by
/// their solution.
class LayoutSystem {
public:
    explicit LayoutSystem(const QWidget* rootView);

    /// Takes up what changed in the tree, in the constraints and in the views' measures.
    void synchronize();

    /// Makes every equation anew at the next synchronize(): the direction of reading has changed.
    void startAnew();

    /// A view that is no more.
    void forget(const QWidget* view);

    /// The views that the last synchronize() found.
    const std::vector<QWidget*>& views() const { return views_; }

    /// The smallest size that the constraints allow, in px.
    QSize minimumSize() const { return minimum_; }

    /// Solves for a rectangle of the root in px and moves the views within it. Views may go, come
    /// and move to other parents meanwhile.
    void place(const QRect& rect);

    QStringList conflicts() const { return stated_.contradictions() + refused_; }

private:
    LayoutConstraints constraintsInForce(const LayoutConstraints& held);
    void takePlaced(const LayoutConstraints& inForce);
    void stateAll(const LayoutConstraints& inForce);
    void findMinimum();
    void setSize(const QSizeF& size);

    const QWidget* const rootView_;
    Simplex simplex_;
    LayoutFrames frames_;
    StatedConstraints stated_;
    ViewDemands demands_;
    Simplex::Constraint widthWish_;
    Simplex::Constraint heightWish_;
    std::vector<QWidget*> views_;
    std::vector<QWidget*> placed_;  // those of views_ that constraints speak of
    QStringList refused_;
    QSize minimum_;
    QSize size_;
};

}  // namespace marquell::toolkit
