// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutSystem.h"

#include <QDebug>
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
    stated_.state(inForce);
    demands_.state();
    // What contradicted a smaller size of some view may hold now.
    if (!stated_.contradictions().isEmpty()) stated_.state(inForce);
    findMinimum();
}

void LayoutSystem::startAnew() { stated_.withdrawAll(); }

void LayoutSystem::forget(const QWidget* view) {
    std::erase(views_, view);
    std::erase(placed_, view);
    origins_.erase(view);
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
    for (const auto& constraint : held) {
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

void LayoutSystem::place(const QSize& size) {
    size_ = size;
    setSize(size_);
    origins_.clear();
    for (QWidget* view : placed_) {
        const QRect rect = frames_.solvedRect(view);
        origins_.emplace(view, rect.topLeft());
        view->setGeometry(rect.translated(-originOf(view->parentWidget())));
    }
}

QPoint LayoutSystem::originOf(const QWidget* parent) const {
    if (parent == rootView_) return {};
    const auto found = origins_.find(parent);
    if (found != origins_.end()) return found->second;
    return parent->pos() + originOf(parent->parentWidget());
}

}  // namespace marquell::toolkit
