// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>
#include <vector>

#include "toolkit/solver/Simplex.h"

namespace marquell::toolkit {

/// What of a view a constraint speaks of. Positions grow to the right and down; `leading` and
/// `trailing` follow the direction of reading of the root that places the view, `left` and `right`
/// do not.
enum class LayoutAttribute {
    left,
    right,
    top,
    bottom,
    leading,
    trailing,
    width,
    height,
    centerX,
    centerY,
    firstBaseline,
};

/// The priorities of the program; there are no others, since each is a tier of the solver.
enum class LayoutPriority : int {
    required = 1000,
    high = 750,
    windowSize = 500,
    labelHugging = 251,
    low = 250,
    lowest = 1,
};

/// One demand of the layout: first item's attribute, `relation`, multiplier times second item's
/// attribute plus constant. It counts as long as a container holds it (addConstraints), both views
/// live and none of them is hidden.
class LayoutConstraint {
public:
    LayoutConstraint(QWidget* firstItem, LayoutAttribute firstAttribute, Relation relation,
                     QWidget* secondItem, LayoutAttribute secondAttribute, double multiplier,
                     double constant);
    /// For a width or height alone.
    LayoutConstraint(QWidget* firstItem, LayoutAttribute attribute, Relation relation,
                     double constant);

    QWidget* firstItem() const { return firstItem_; }
    QWidget* secondItem() const { return secondItem_; }
    bool hasSecondItem() const { return relates_; }  // also when that has gone
    LayoutAttribute firstAttribute() const { return firstAttribute_; }
    LayoutAttribute secondAttribute() const { return secondAttribute_; }
    Relation relation() const { return relation_; }
    double multiplier() const { return multiplier_; }
    double constant() const { return constant_; }
    LayoutPriority priority() const { return priority_; }

    /// In points, like all constants of the layout: the root turns them into px.
    void setConstant(double points);
    void setPriority(LayoutPriority priority);

    /// For messages: "save.right = content.right - 8", by the views' object names or kinds.
    QString description() const;

private:
    void changed() const;

    QPointer<QWidget> firstItem_;
    QPointer<QWidget> secondItem_;
    bool relates_;
    LayoutAttribute firstAttribute_;
    LayoutAttribute secondAttribute_;
    Relation relation_;
    double multiplier_;
    double constant_;
    LayoutPriority priority_ = LayoutPriority::required;
};

using LayoutConstraintPtr = std::shared_ptr<LayoutConstraint>;
using LayoutConstraints = std::vector<LayoutConstraintPtr>;

/// Puts constraints in force; `container` holds them from now on.
void addConstraints(QWidget* container, const LayoutConstraints& constraints);

/// Takes constraints that `container` holds out of force.
void removeConstraints(QWidget* container, const LayoutConstraints& constraints);

}  // namespace marquell::toolkit
