// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/solver/Objective.h"

#include <algorithm>
#include <utility>

namespace marquell::toolkit {
namespace {

void addTo(double& sum, double change) {
    sum += change;
    if (isNegligible(sum)) sum = 0;
}

std::size_t indexOf(Tier tier) { return static_cast<std::size_t>(tier) - 1; }

}  // namespace

bool isGain(const Cost& cost) {
    const auto first =
        std::find_if(cost.begin(), cost.end(), [](double part) { return part != 0; });
    return first != cost.end() && *first < 0;
}

bool isCheaper(const Cost& left, double leftDivisor, const Cost& right, double rightDivisor) {
    for (std::size_t tier = 0; tier < left.size(); ++tier) {
        const double difference = left[tier] / leftDivisor - right[tier] / rightDivisor;
        if (!isNegligible(difference)) return difference < 0;
    }
    return false;
}

void Objective::include(Symbol symbol) {
    if (symbol >= costs_.size()) costs_.resize(symbol + 1);
    costs_[symbol] = {};
}

void Objective::add(Symbol symbol, Tier tier, double change) {
    addTo(costs_[symbol][indexOf(tier)], change);
}

void Objective::add(const Row& row, Tier tier, double change) {
    for (const Cell& cell : row.cells) add(cell.symbol, tier, change * cell.coefficient);
}

void Objective::substitute(Symbol basic, const Row& row) {
    const Cost cost = std::exchange(costs_[basic], {});
    for (std::size_t tier = 0; tier < cost.size(); ++tier) {
        if (cost[tier] == 0) continue;
        for (const Cell& cell : row.cells) {
            addTo(costs_[cell.symbol][tier], cost[tier] * cell.coefficient);
        }
    }
}

}  // namespace marquell::toolkit
