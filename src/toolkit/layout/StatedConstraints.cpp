// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/StatedConstraints.h"

#include <QDebug>
#include <unordered_set>

#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {

StatedConstraints::StatedConstraints(Simplex& simplex, LayoutFrames& frames)
    : simplex_(simplex), frames_(frames) {}

bool StatedConstraints::state(const LayoutConstraints& wanted) {
    keepOnly(wanted);
    bool allHold = true;
    for (Stated& stated : stated_) allHold &= bringInLine(stated);
    return allHold;
}

void StatedConstraints::report() {
    const QStringList now = contradictions();
    for (const QString& contradiction : now) {
        if (reported_.contains(contradiction)) continue;
        qDebug().noquote() << "layout:" << contradiction << "and is left out";
    }
    reported_ = now;
}

void StatedConstraints::keepOnly(const LayoutConstraints& wanted) {
    std::unordered_map<const LayoutConstraint*, Stated> before;
    std::unordered_set<const LayoutConstraint*> kept;
    for (const auto& constraint : wanted) kept.insert(constraint.get());
    for (Stated& stated : stated_) {
        if (!kept.contains(stated.constraint.get())) withdrawRow(stated);
        before.emplace(stated.constraint.get(), std::move(stated));
    }
    stated_.clear();
    for (const auto& constraint : wanted) {
        const auto found = before.find(constraint.get());
        if (found == before.end()) {
            stated_.push_back({constraint, std::nullopt, {}});
        } else {
            stated_.push_back(std::move(found->second));
            before.erase(found);
        }
    }
}

void StatedConstraints::withdrawRow(Stated& stated) {
    if (!stated.row) return;
    byRow_.erase(stated.row->handle);
    withdraw(simplex_, stated.row);
}

void StatedConstraints::withdrawAll() {
    for (Stated& stated : stated_) withdrawRow(stated);
}

bool StatedConstraints::bringInLine(Stated& stated) {
    const LayoutConstraint& constraint = *stated.constraint;
    const LayoutExpression difference = frames_.differenceOf(constraint);
    const double constant = constraint.constant() * metrics().scale() - difference.constant;
    const Tier tier = tierOf(constraint.priority());
    const auto handle = stated.row ? std::optional(stated.row->handle) : std::nullopt;
    if (adapt(simplex_, stated.row, constant, tier)) return true;
    if (handle) byRow_.erase(*handle);

    const auto outcome = simplex_.add(difference.terms, constraint.relation(), constant, tier);
    if (outcome.constraint) {
        stated.row = LayoutRow{*outcome.constraint, constant, tier};
        stated.contradiction.clear();
        byRow_.emplace(*outcome.constraint, stated.constraint.get());
        return true;
    }
    stated.contradiction =
        constraint.description() + QStringLiteral(" contradicts ") + describe(outcome.contradicts);
    return false;
}

QString StatedConstraints::describe(const std::vector<Simplex::Constraint>& rows) const {
    QStringList names;
    for (const auto row : rows) {
        const auto found = byRow_.find(row);
        // What has no constraint behind it is the smallest size of a view's content.
        names += found == byRow_.end() ? QStringLiteral("the room that a view's content needs")
                                       : found->second->description();
    }
    return names.isEmpty() ? QStringLiteral("itself") : names.join(QStringLiteral("; "));
}

QStringList StatedConstraints::contradictions() const {
    QStringList all;
    for (const Stated& stated : stated_) {
        if (!stated.row) all += stated.contradiction;
    }
    return all;
}

}  // namespace marquell::toolkit
