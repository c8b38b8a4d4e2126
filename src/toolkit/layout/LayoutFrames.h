// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <unordered_map>
#include <vector>

#include "toolkit/layout/LayoutConstraint.h"
#include "toolkit/solver/Simplex.h"

namespace marquell::toolkit {

/// A sum of variables and a number of px.
struct LayoutExpression {
    std::vector<Simplex::Term> terms;
    double constant = 0;

    void add(Simplex::Variable variable, double coefficient);
    void add(const LayoutExpression& other, double factor);
};

/// The variables that stand for the rectangles of views, in the coordinates of a root, and what
/// attributes of views are in terms of them.
class LayoutFrames {
public:
    LayoutFrames(Simplex& simplex, const QWidget* rootView);

    struct Frame {
        Simplex::Variable left, top, width, height;
    };

    /// Makes the variables of a view that has none yet. Not for the root.
    const Frame& frameOf(const QWidget* view);

    /// No constraint speaks of the view any more, and none will: it is gone.
    void forget(const QWidget* view);

    Simplex::Variable rootWidth() const { return root_.width; }
    Simplex::Variable rootHeight() const { return root_.height; }

    /// What the constraint demands to be in its relation to 0, but for its constant.
    LayoutExpression differenceOf(const LayoutConstraint& constraint);

    /// The view's edges in whole px: they are rounded, not width and height.
    QRect solvedRect(const QWidget* view) const;

private:
    LayoutExpression attributeOf(const QWidget* view, LayoutAttribute attribute,
                                 bool inReadingDirection);
    LayoutExpression positionOf(const QWidget* view, Qt::Orientation orientation, double share);

    Simplex& simplex_;
    const QWidget* const rootView_;
    Frame root_;  // left and top are never used: the root begins at 0
    std::unordered_map<const QWidget*, Frame> frames_;
    std::vector<Frame> spare_;
};

}  // namespace marquell::toolkit
