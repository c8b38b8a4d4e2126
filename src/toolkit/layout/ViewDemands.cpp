// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/ViewDemands.h"

#include <unordered_map>
#include <unordered_set>

#include "toolkit/layout/ViewMeasures.h"

namespace marquell::toolkit {

ViewDemands::ViewDemands(Simplex& simplex, LayoutFrames& frames)
    : simplex_(simplex), frames_(frames) {}

void ViewDemands::keepOnly(const std::vector<QWidget*>& views) {
    std::unordered_map<const QWidget*, OfView> before;
    const std::unordered_set<const QWidget*> kept(views.begin(), views.end());
    for (OfView& own : views_) {
        if (!kept.contains(own.view)) withdrawAll(own);
        before.emplace(own.view, own);
    }
    views_.clear();
    for (const QWidget* view : views) {
        const auto found = before.find(view);
        views_.push_back(found == before.end() ? OfView{view, {}, {}} : found->second);
    }
}

void ViewDemands::forget(const QWidget* view) {
    std::erase_if(views_, [&](OfView& own) {
        if (own.view == view) withdrawAll(own);
        return own.view == view;
    });
}

bool ViewDemands::state() {
    bool allHold = true;
    for (OfView& own : views_) {
        const IntrinsicSize content = intrinsicSizeOf(own.view);
        const QSize minimum = requiredMinimumOf(own.view);
        allHold &= demand(own.across, own.view, Qt::Horizontal, content.width, minimum.width());
        allHold &= demand(own.down, own.view, Qt::Vertical, content.height, minimum.height());
    }
    return allHold;
}

bool ViewDemands::demand(Demands& demands, const QWidget* view, Qt::Orientation orientation,
                         double content, int minimum) {
    const auto& frame = frames_.frameOf(view);
    const Simplex::Variable length = orientation == Qt::Horizontal ? frame.width : frame.height;
    bool allHold = true;
    if (minimum > 0) {
        allHold = demandRow(demands.minimum, length, Relation::greaterThanOrEqual, minimum,
                            Tier::required);
    } else {
        withdraw(simplex_, demands.minimum);
    }
    if (content < 0) {
        withdraw(simplex_, demands.compression);
        withdraw(simplex_, demands.hugging);
        return allHold;
    }
    allHold &= demandRow(demands.compression, length, Relation::greaterThanOrEqual, content,
                         tierOf(contentCompressionResistancePriority(view, orientation)));
    return allHold & demandRow(demands.hugging, length, Relation::lessThanOrEqual, content,
                               tierOf(contentHuggingPriority(view, orientation)));
}

bool ViewDemands::demandRow(std::optional<LayoutRow>& row, Simplex::Variable length,
                            Relation relation, double constant, Tier tier) {
    if (adapt(simplex_, row, constant, tier)) return true;
    const auto outcome = simplex_.add({{length, 1}}, relation, constant, tier);
    if (outcome.constraint) row = LayoutRow{*outcome.constraint, constant, tier};
    return row.has_value();
}

void ViewDemands::withdrawAll(OfView& own) {
    for (Demands* demands : {&own.across, &own.down}) {
        withdraw(simplex_, demands->minimum);
        withdraw(simplex_, demands->compression);
        withdraw(simplex_, demands->hugging);
    }
}

}  // namespace marquell::toolkit
