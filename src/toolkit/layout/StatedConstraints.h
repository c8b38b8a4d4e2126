// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <optional>
#include <unordered_map>
#include <vector>

#include "toolkit/layout/LayoutFrames.h"
#include "toolkit/layout/LayoutRow.h"

namespace marquell::toolkit {

/// The constraints of a root in the solver. One that cannot hold beside those before it is left
/// out, and tried again at each change.
class StatedConstraints {
public:
    StatedConstraints(Simplex& simplex, LayoutFrames& frames);

    /// Makes `wanted` the constraints in force. False if some contradict others.
    bool state(const LayoutConstraints& wanted);

    /// Takes all out, so that the next state() makes all rows anew.
    void withdrawAll();

    /// Says in debug messages what is newly left out.
    void report();

    /// "a.left = b.left + 1 contradicts b.left = 0; …" for each that is left out.
    QStringList contradictions() const;

private:
    struct Stated {
        LayoutConstraintPtr constraint;  // keeps its address from being used again
        std::optional<LayoutRow> row;
        QString contradiction;
    };

    void keepOnly(const LayoutConstraints& wanted);
    bool bringInLine(Stated& stated);
    void withdrawRow(Stated& stated);
    QString describe(const std::vector<Simplex::Constraint>& rows) const;

    Simplex& simplex_;
    LayoutFrames& frames_;
    std::vector<Stated> stated_;  // in the order of the views and of their stating
    std::unordered_map<Simplex::Constraint, const LayoutConstraint*> byRow_;
    QStringList reported_;
};

}  // namespace marquell::toolkit
