// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "toolkit/solver/Simplex.h"

namespace marquell::toolkit {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

constexpr double tolerance = 1e-6;

constexpr std::size_t maximumDimensions = 5;
using Point = std::array<double, maximumDimensions>;  // 0 for variables that there are not

/// A constraint with a coefficient for each variable.
struct Demand {
    Point coefficients{};
    Relation relation = Relation::equal;
    double constant = 0;
    Tier tier = Tier::required;
};

using Violations = std::array<double, 6>;  // by tier

double violationOf(const Demand& demand, const Point& point) {
    double excess = -demand.constant;
    for (std::size_t i = 0; i < point.size(); ++i) excess += demand.coefficients[i] * point[i];
    if (demand.relation == Relation::lessThanOrEqual) return std::max(excess, 0.0);
    if (demand.relation == Relation::greaterThanOrEqual) return std::max(-excess, 0.0);
    return std::fabs(excess);
}

Violations violationsAt(const Point& point, const std::vector<Demand>& demands) {
    Violations violations{};
    for (const Demand& demand : demands) {
        violations[static_cast<std::size_t>(demand.tier)] += violationOf(demand, point);
    }
    return violations;
}

bool isLess(const Violations& left, const Violations& right) {
    for (std::size_t tier = 0; tier < left.size(); ++tier) {
        if (std::fabs(left[tier] - right[tier]) > tolerance) return left[tier] < right[tier];
    }
    return false;
}

/// Where as many hyperplanes meet as there are dimensions, if that is one point.
std::optional<Point> meetingPoint(std::array<Demand, maximumDimensions> planes, std::size_t count) {
    for (std::size_t column = 0; column < count; ++column) {
        const auto size = [&](std::size_t i) { return std::fabs(planes[i].coefficients[column]); };
        std::size_t pivot = column;
        for (std::size_t i = column; i < count; ++i) pivot = size(i) > size(pivot) ? i : pivot;
        if (size(pivot) < 1e-9) return std::nullopt;
        std::swap(planes[pivot], planes[column]);
        for (std::size_t i = 0; i < count; ++i) {
            if (i == column) continue;
            const double factor =
                planes[i].coefficients[column] / planes[column].coefficients[column];
            for (std::size_t j = column; j < count; ++j) {
                planes[i].coefficients[j] -= factor * planes[column].coefficients[j];
            }
            planes[i].constant -= factor * planes[column].constant;
        }
    }
    Point point{};
    for (std::size_t i = 0; i < count; ++i) {
        point[i] = planes[i].constant / planes[i].coefficients[i];
    }
    return point;
}

Demand unit(std::size_t variable) {
    Demand demand;
    demand.coefficients[variable] = 1;
    return demand;
}

/// The least violations there can be, by trying each point where boundaries of demands or planes
/// through the origin meet: with these, the cells between the boundaries contain no whole line, so
/// that each cell's optimum is at such a point. None if the required demands contradict each other.
std::optional<Violations> leastViolations(std::size_t dimensions,
                                          const std::vector<Demand>& demands) {
    std::vector<Demand> planes = demands;
    for (std::size_t i = 0; i < dimensions; ++i) planes.push_back(unit(i));
    std::vector<bool> isChosen(planes.size(), false);
    std::fill_n(isChosen.begin(), dimensions, true);
    std::optional<Violations> best;
    do {
        std::array<Demand, maximumDimensions> chosen;
        std::size_t count = 0;
        for (std::size_t i = 0; i < planes.size(); ++i) {
            if (isChosen[i]) chosen[count++] = planes[i];
        }
        const std::optional<Point> point = meetingPoint(chosen, count);
        if (!point) continue;
        const Violations violations = violationsAt(*point, demands);
        if (violations[0] < tolerance && (!best || isLess(violations, *best))) best = violations;
    } while (std::prev_permutation(isChosen.begin(), isChosen.end()));
    return best;
}

/// A system beside the list of the demands that it has to meet.
class Trial {
public:
    explicit Trial(const std::vector<bool>& isNonNegative) {
        for (std::size_t i = 0; i < isNonNegative.size(); ++i) {
            variables_.push_back(isNonNegative[i] ? simplex_.addNonNegativeVariable()
                                                  : simplex_.addVariable());
            if (!isNonNegative[i]) continue;
            bounds_.push_back(unit(i));
            bounds_.back().relation = Relation::greaterThanOrEqual;
        }
    }

    std::size_t size() const { return demands_.size(); }
    const Demand& demand(std::size_t index) const { return demands_[index].second; }

    Point point() const {
        Point point{};
        for (std::size_t i = 0; i < variables_.size(); ++i) {
            point[i] = simplex_.value(variables_[i]);
        }
        return point;
    }

    bool add(const Demand& demand) {
        const Point before = point();
        std::vector<Simplex::Term> terms;
        for (std::size_t i = 0; i < variables_.size(); ++i) {
            terms.push_back({variables_[i], demand.coefficients[i] - 1});
            terms.push_back({variables_[i], 1});
        }
        const Simplex::Outcome outcome =
            simplex_.add(terms, demand.relation, demand.constant, demand.tier);
        if (outcome.constraint) {
            demands_.emplace_back(*outcome.constraint, demand);
            return true;
        }
        EXPECT_EQ(demand.tier, Tier::required);
        EXPECT_THAT(point(), Pointwise(DoubleNear(tolerance), before));
        expectContradiction(outcome.contradicts, demand);
        return false;
    }

    void setConstant(std::size_t index, double constant) {
        auto& [handle, demand] = demands_[index];
        const Point before = point();
        const double old = std::exchange(demand.constant, constant);
        if (simplex_.setConstant(handle, constant)) return;
        EXPECT_FALSE(leastViolations(variables_.size(), withBounds(required())));
        EXPECT_THAT(point(), Pointwise(DoubleNear(tolerance), before));
        demand.constant = old;
    }

    void remove(std::size_t index) {
        simplex_.remove(demands_[index].first);
        demands_.erase(demands_.begin() + static_cast<std::ptrdiff_t>(index));
    }

    void expectOptimum() const {
        std::vector<Demand> demands;
        for (const auto& entry : demands_) demands.push_back(entry.second);
        demands = withBounds(std::move(demands));
        const std::optional<Violations> least = leastViolations(variables_.size(), demands);
        ASSERT_TRUE(least);
        EXPECT_THAT(violationsAt(point(), demands), Pointwise(DoubleNear(tolerance), *least));
    }

private:
    std::vector<Demand> withBounds(std::vector<Demand> demands) const {
        demands.insert(demands.end(), bounds_.begin(), bounds_.end());
        return demands;
    }

    std::vector<Demand> required() const {
        std::vector<Demand> required;
        for (const auto& [handle, demand] : demands_) {
            if (demand.tier == Tier::required) required.push_back(demand);
        }
        return required;
    }

    /// The handles and the demand contradict each other; where no variable has a bound of its own,
    /// all of them are needed for that.
    void expectContradiction(const std::vector<Simplex::Constraint>& handles,
                             const Demand& demand) const {
        std::vector<Demand> set{demand};
        for (const auto& [handle, other] : demands_) {
            if (std::find(handles.begin(), handles.end(), handle) == handles.end()) continue;
            EXPECT_EQ(other.tier, Tier::required);
            set.push_back(other);
        }
        EXPECT_EQ(set.size(), handles.size() + 1);
        EXPECT_FALSE(leastViolations(variables_.size(), withBounds(set)));
        for (std::size_t i = 0; bounds_.empty() && i < set.size(); ++i) {
            std::vector<Demand> rest = set;
            rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
            EXPECT_TRUE(leastViolations(variables_.size(), rest));
        }
    }

    Simplex simplex_;
    std::vector<Simplex::Variable> variables_;
    std::vector<Demand> bounds_;
    std::vector<std::pair<Simplex::Constraint, Demand>> demands_;
};

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    int between(int low, int high) {
        return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1));
    }

    std::size_t index(std::size_t count) { return engine_() % count; }

    std::vector<bool> bounds(std::size_t dimensions) {
        std::vector<bool> bounds(dimensions);
        const bool areThereAny = between(0, 1) == 1;
        for (auto bound : bounds) bound = areThereAny && between(0, 1) == 1;
        return bounds;
    }

    Demand demand(std::size_t dimensions) {
        Demand demand;
        for (std::size_t i = 0; i < dimensions; ++i) {
            demand.coefficients[i] = between(0, 2) == 0 ? between(-3, 3) : between(-1, 1);
        }
        demand.relation = static_cast<Relation>(between(0, 2));
        demand.constant = between(0, 3) == 0 ? 0 : between(-9, 9);
        demand.tier = static_cast<Tier>(between(0, 5));
        return demand;
    }

private:
    std::mt19937 engine_;
};

TEST(Simplex, FindsTheOptimumInAnyOrder) {
    for (unsigned seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const auto dimensions = static_cast<std::size_t>(seed % 20 == 0 ? 5 : dice.between(2, 4));
        const std::vector<bool> bounds = dice.bounds(dimensions);
        Trial trial(bounds);
        for (int i = dice.between(3, dimensions == 5 ? 7 : 10); i > 0; --i) {
            Demand demand = dice.demand(dimensions);
            if (seed % 3 == 0 && dice.between(0, 1) == 0) demand.tier = Tier::required;
            trial.add(demand);
        }
        trial.expectOptimum();

        Trial reversed(bounds);
        for (std::size_t i = trial.size(); i > 0; --i) {
            EXPECT_TRUE(reversed.add(trial.demand(i - 1)));
        }
        reversed.expectOptimum();
        if (testing::Test::HasFailure()) break;
    }
}

TEST(Simplex, FindsTheOptimumAfterEachChange) {
    for (unsigned seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const auto dimensions = static_cast<std::size_t>(dice.between(2, 3));
        Trial trial(dice.bounds(dimensions));
        for (int step = 0; step < 20; ++step) {
            const int choice = dice.between(0, 9);
            if (trial.size() == 0 || (choice < 4 && trial.size() < 9)) {
                Demand demand = dice.demand(dimensions);
                // Every so often one that others imply or exclude.
                if (trial.size() > 0 && choice == 0) demand = trial.demand(trial.size() - 1);
                trial.add(demand);
            } else if (choice < 8) {
                trial.setConstant(dice.index(trial.size()), dice.between(-9, 9));
            } else {
                trial.remove(dice.index(trial.size()));
            }
            trial.expectOptimum();
        }
        if (testing::Test::HasFailure()) break;
    }
}

TEST(Simplex, KeepsTheTwinOfAnEquationThatGoes) {
    Simplex simplex;
    const auto x = simplex.addVariable();
    const auto y = simplex.addNonNegativeVariable();
    const auto add = [&](const std::vector<Simplex::Term>& terms, double constant, Tier tier) {
        return simplex.add(terms, Relation::equal, constant, tier);
    };
    const auto sum = *add({{x, 1}, {y, 1}}, 10, Tier::required).constraint;
    const auto difference = *add({{x, 1}, {y, -1}}, 2, Tier::required).constraint;
    const auto implied = *add({{x, 2}, {y, 0}}, 12, Tier::required).constraint;
    EXPECT_FALSE(simplex.setConstant(implied, 14));
    EXPECT_THAT(add({{x, 1}}, 5, Tier::required).contradicts, ElementsAre(sum, difference));
    simplex.remove(sum);
    add({{y, 1}}, 0, Tier::high);
    EXPECT_NEAR(simplex.value(x), 6, tolerance);
    EXPECT_NEAR(simplex.value(y), 4, tolerance);
    EXPECT_TRUE(simplex.setConstant(implied, 14));
    EXPECT_NEAR(simplex.value(y), 5, tolerance);
    simplex.remove(implied);
    EXPECT_NEAR(simplex.value(y), 0, tolerance);
    EXPECT_NEAR(simplex.value(x), 2, tolerance);
    // Against a bound of its own and against nothing at all.
    EXPECT_THAT(add({{y, 1}}, -1, Tier::required).contradicts, IsEmpty());
    EXPECT_FALSE(add({}, 1, Tier::required).constraint);
    EXPECT_TRUE(add({}, 0, Tier::required).constraint);
}

/// Boxes in a row that share the width; the rounding of many changes must not add up.
class Boxes {
public:
    Boxes() {
        std::vector<Simplex::Term> all;
        for (int i = 0; i < 12; ++i) {
            widths_.push_back(simplex_.addNonNegativeVariable());
            all.push_back({widths_.back(), 1 + i % 3 / 3.0});
            const std::vector<Simplex::Term> width{{widths_.back(), 1}};
            hints_.push_back(
                *simplex_.add(width, Relation::greaterThanOrEqual, 0, Tier::high).constraint);
            simplex_.add(width, Relation::lessThanOrEqual, 20 + i, Tier::low);
            if (i % 4 == 0) continue;
            simplex_.add({{widths_.back(), 3}, {widths_[widths_.size() - 2], -7}}, Relation::equal,
                         0, i % 2 == 0 ? Tier::required : Tier::lowest);
        }
        total_ = *simplex_.add(all, Relation::equal, 100, Tier::window).constraint;
    }

    void change(Dice& dice) {
        simplex_.setConstant(total_, dice.between(0, 100000) / 7.0);
        simplex_.setConstant(hints_[dice.index(hints_.size())], dice.between(0, 3000) / 11.0);
    }

    std::vector<double> widths() const {
        std::vector<double> widths;
        for (const auto width : widths_) widths.push_back(simplex_.value(width));
        return widths;
    }

    /// From anywhere to where there is only one optimum.
    void settle() {
        simplex_.setConstant(total_, 500);
        for (const auto hint : hints_) simplex_.setConstant(hint, 1000);
    }

private:
    Simplex simplex_;
    std::vector<Simplex::Variable> widths_;
    std::vector<Simplex::Constraint> hints_;
    Simplex::Constraint total_ = 0;
};

TEST(Simplex, StaysExactAndRepeatable) {
    Boxes boxes;
    Boxes twin;
    Dice dice(1);
    Dice twinDice(1);
    for (int i = 0; i < 20000; ++i) {
        boxes.change(dice);
        twin.change(twinDice);
        ASSERT_EQ(boxes.widths(), twin.widths());
    }
    Boxes fresh;
    boxes.settle();
    fresh.settle();
    EXPECT_THAT(boxes.widths(), Pointwise(DoubleNear(1e-6), fresh.widths()));
}

}  // namespace
}  // namespace marquell::toolkit
