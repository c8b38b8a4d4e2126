// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutConstraintMaker.h"

#include <array>
#include <cassert>

#include "toolkit/bricks/BricksFactory.h"

namespace marquell::toolkit {
namespace {

using Attribute = LayoutAttribute;

void addSize(LayoutConstraintMaker& maker, Attribute attribute, Relation relation, double c) {
    maker.constraints.push_back(
        std::make_shared<LayoutConstraint>(maker.subject, attribute, relation, c));
}

void addRelation(LayoutConstraintMaker& maker, Attribute a, QWidget* relation, Attribute b,
                 double c) {
    maker.constraints.push_back(
        std::make_shared<LayoutConstraint>(maker.subject, a, Relation::equal, relation, b, 1.0, c));
}

void setLastPriority(const LayoutConstraintMaker& maker, LayoutPriority priority) {
    assert(!maker.constraints.empty());
    if (!maker.constraints.empty()) maker.constraints.back()->setPriority(priority);
}

/// The subject's and the relation's attribute of each direction, in the order of its type.
constexpr std::array<std::pair<Attribute, Attribute>, 8> directions{{
    {Attribute::left, Attribute::left},
    {Attribute::right, Attribute::right},
    {Attribute::top, Attribute::top},
    {Attribute::bottom, Attribute::bottom},
    {Attribute::top, Attribute::bottom},
    {Attribute::bottom, Attribute::top},
    {Attribute::trailing, Attribute::leading},
    {Attribute::leading, Attribute::trailing},
}};

}  // namespace

LayoutConstraintMaker& LayoutConstraintMaker::width(double c) {
    addSize(*this, Attribute::width, Relation::equal, c);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::height(double c) {
    addSize(*this, Attribute::height, Relation::equal, c);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::minWidth(double c) {
    addSize(*this, Attribute::width, Relation::greaterThanOrEqual, c);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::maxWidth(double c) {
    addSize(*this, Attribute::width, Relation::lessThanOrEqual, c);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::minHeight(double c) {
    addSize(*this, Attribute::height, Relation::greaterThanOrEqual, c);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::maxHeight(double c) {
    addSize(*this, Attribute::height, Relation::lessThanOrEqual, c);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::fillContainer(double inset) {
    for (const auto edge : {Attribute::top, Attribute::left}) container().pin(edge, edge, inset);
    for (const auto edge : {Attribute::bottom, Attribute::right}) {
        container().pin(edge, edge, -inset);
    }
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::highPriority() {
    setLastPriority(*this, LayoutPriority::high);
    return *this;
}

LayoutConstraintMaker& LayoutConstraintMaker::lowPriority() {
    setLastPriority(*this, LayoutPriority::low);
    return *this;
}

LayoutConstraintMakerWithRelation LayoutConstraintMaker::container() {
    assert(subject->parentWidget());
    return {subject->parentWidget(), *this};
}

LayoutConstraintMakerWithRelation LayoutConstraintMaker::andView(QWidget* view) {
    return {view, *this};
}

using WithRelation = LayoutConstraintMakerWithRelation;

WithRelation& WithRelation::pin(Attribute a, Attribute b, double c) {
    addRelation(container, a, relation, b, c);
    return *this;
}

WithRelation& WithRelation::pin(SmartLayoutDirectionsType direction, double c) {
    const auto [a, b] = directions[static_cast<std::size_t>(direction)];
    return pin(a, b, c);
}

WithRelation& WithRelation::place(Attribute a, Attribute b) {
    return pin(a, b, BricksFactory::current().insetFor(a));
}

WithRelation& WithRelation::width(double c) { return pin(Attribute::width, Attribute::width, c); }

WithRelation& WithRelation::height(double c) {
    return pin(Attribute::height, Attribute::height, c);
}

WithRelation& WithRelation::highPriority() {
    container.highPriority();
    return *this;
}

WithRelation& WithRelation::lowPriority() {
    container.lowPriority();
    return *this;
}

}  // namespace marquell::toolkit
