// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutSystem.h"

#include <QDebug>
#include <QPointer>
#include <algorithm>
#include <cmath>

#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/layout/LayoutScope.h"

namespace marquell::toolkit {
namespace {

/// Up to the next whole px, but for what is only noise of the arithmetic.
int ceiling(double length) { return static_cast<int>(std::ceil(length - 1e-6)); }

}  // namespace

LayoutSystem::LayoutSystem(const QWidget* rootView)
    : rootView_(rootView),
      frames_(simplex_, rootView),
      stated_(simplex_, frames_),
      demands_(simplex_, frames_),
      widthWish_(
          *simplex_.add({{frames_.rootWidth(), 1}}, Relation::equal, 0, Tier::window).constraint),
      heightWish_(
          *simplex_.add({{frames_.rootHeight(), 1}}, Relation::equal, 0, Tier::window).constraint) {
}

void LayoutSystem::synchronize() {
    const LayoutScope scope = scopeBelow(rootView_);
    views_ = scope.views;
    const LayoutConstraints inForce = constraintsInForce(scope.constraints);
    takePlaced(inForce);
    demands_.keepOnly(placed_);
    stateAll(inForce);
    findMinimum();
}

void LayoutSystem::stateAll(const LayoutConstraints& inForce) {
    // What changes step by step may contradict itself in between, and where there is a true
    // contradiction, who is left out must not depend on what came first: so all is said anew.
    if (!demands_.state()) {
        stated_.withdrawAll();
        demands_.state();
    }
    if (!stated_.state(inForce)) {
        stated_.withdrawAll();
        stated_.state(inForce);
    }
    stated_.report();
}

void LayoutSystem::startAnew() { stated_.withdrawAll(); }

void LayoutSystem::forget(const QWidget* view) {
    std::erase(views_, view);
    std::erase(placed_, view);
    demands_.forget(view);
    frames_.forget(view);
}

LayoutConstraints LayoutSystem::constraintsInForce(const LayoutConstraints& held) {
    const std::unordered_set<const QWidget*> here(views_.begin(), views_.end());
    const auto isHere = [&](const QWidget* view) {
        return view == rootView_ || here.contains(view);
    };
    const auto isElsewhere = [&](const QWidget* view) {
        const LayoutRoot* root = LayoutRoot::above(view);
        return !isHere(view) && root && root->parentWidget() != rootView_;
    };
    LayoutConstraints inForce;
    QStringList refused;
    std::unordered_set<const LayoutConstraint*> known;  // two containers may hold the same
    for (const auto& constraint : held) {
        if (!known.insert(constraint.get()).second) continue;
        const QWidget* first = constraint->firstItem();
        const QWidget* second = constraint->hasSecondItem() ? constraint->secondItem() : rootView_;
        if (isHere(first) && isHere(second)) {
            inForce.push_back(constraint);
        } else if (isElsewhere(first) || isElsewhere(second)) {
            refused += constraint->description() + QStringLiteral(" joins two layouts");
            if (!refused_.contains(refused.back())) {
                qDebug().noquote() << "layout:" << refused.back() << "and is left out";
            }
        }
    }
    refused_ = refused;
    return inForce;
}

void LayoutSystem::takePlaced(const LayoutConstraints& inForce) {
    std::unordered_set<const QWidget*> spokenOf;
    for (const auto& constraint : inForce) {
        spokenOf.insert(constraint->firstItem());
        spokenOf.insert(constraint->secondItem());
    }
    placed_.clear();
    std::copy_if(views_.begin(), views_.end(), std::back_inserter(placed_),
                 [&](const QWidget* view) { return spokenOf.contains(view); });
}

void LayoutSystem::findMinimum() {
    setSize({0, 0});
    minimum_ = {ceiling(simplex_.value(frames_.rootWidth())),
                ceiling(simplex_.value(frames_.rootHeight()))};
    setSize(size_);
}

void LayoutSystem::setSize(const QSizeF& size) {
    simplex_.setConstant(widthWish_, size.width());
    simplex_.setConstant(heightWish_, size.height());
}

void LayoutSystem::place(const QRect& rect) {
    struct Place {
        QPointer<QWidget> view;
        const QWidget* parent;
        QRect rect;  // in the parent
    };
    size_ = rect.size();
    setSize(size_);
    std::unordered_map<const QWidget*, QPoint> origins{{rootView_, QPoint()}};
    const auto originOf = [&](const QWidget* parent) {
        QPoint origin;
        for (; !origins.contains(parent); parent = parent->parentWidget()) origin += parent->pos();
        return origin + origins.at(parent);
    };
    std::vector<Place> places;
    for (QWidget* view : placed_) {
        const QRect inRoot = frames_.solvedRect(view).translated(rect.topLeft());
        origins.emplace(view, inRoot.topLeft());
        const QWidget* parent = view->parentWidget();
        places.push_back({view, parent, inRoot.translated(-originOf(parent))});
    }
    for (const Place& place : places) {
        const bool isStillThere = place.view && place.view->parentWidget() == place.parent;
        if (isStillThere) place.view->setGeometry(place.rect);
    }
}

}  // namespace marquell::toolkit
