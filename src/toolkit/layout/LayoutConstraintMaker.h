// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "toolkit/layout/LayoutConstraint.h"

namespace marquell::toolkit {

class LayoutConstraintMakerWithRelation;

/// Two attributes at once: the same edge of both views, or one view next to the other.
enum class SmartLayoutDirectionsType { left, right, top, bottom, below, above, before, after };

/// Says where one view goes, phrase by phrase. The constraints are collected in the order of the
/// calls and come in force when a container is given them. Lengths in points.
class LayoutConstraintMaker {
public:
    explicit LayoutConstraintMaker(QWidget* ofView) : subject(ofView) {}

    LayoutConstraintMaker& width(double c);
    LayoutConstraintMaker& height(double c);
    LayoutConstraintMaker& minWidth(double c);
    LayoutConstraintMaker& maxWidth(double c);
    LayoutConstraintMaker& minHeight(double c);
    LayoutConstraintMaker& maxHeight(double c);
    /// Top, bottom, left and right on those of the superview.
    LayoutConstraintMaker& fillContainer(double inset = 0);
    /// Priority of the last constraint: 750 and 250.
    LayoutConstraintMaker& highPriority();
    LayoutConstraintMaker& lowPriority();

    /// Relations to the superview, and to any other view.
    LayoutConstraintMakerWithRelation container();
    LayoutConstraintMakerWithRelation andView(QWidget* view);

    QWidget* const subject;
    LayoutConstraints constraints;
};

/// Relations of the maker's subject to one other view.
class LayoutConstraintMakerWithRelation {
public:
    LayoutConstraintMakerWithRelation(QWidget* toView, LayoutConstraintMaker& maker)
        : relation(toView), container(maker) {}

    /// Subject's `a` equals the relation's `b` plus `c`.
    LayoutConstraintMakerWithRelation& pin(LayoutAttribute a, LayoutAttribute b, double c);
    LayoutConstraintMakerWithRelation& pin(SmartLayoutDirectionsType direction, double c);
    /// The same at the standard distance of the current factory: inwards for the same edge of both,
    /// a gap between neighbours.
    LayoutConstraintMakerWithRelation& place(LayoutAttribute a, LayoutAttribute b);
    /// As wide (high) as the relation, plus `c`.
    LayoutConstraintMakerWithRelation& width(double c);
    LayoutConstraintMakerWithRelation& height(double c);
    LayoutConstraintMakerWithRelation& highPriority();
    LayoutConstraintMakerWithRelation& lowPriority();

    QWidget* const relation;
    LayoutConstraintMaker& container;
};

/// States the constraints of the maker's subject.
using LayoutClosure = std::function<void(LayoutConstraintMaker& make)>;

}  // namespace marquell::toolkit
