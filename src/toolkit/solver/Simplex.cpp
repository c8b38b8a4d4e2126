// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/solver/Simplex.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "toolkit/solver/Optimizer.h"

namespace marquell::toolkit {
namespace {

/// What stands for a constraint in the tableau: marker - opposite = terms - constant, both sides
/// turned round for "less than or equal". Of an inequality only the opposite is a violation, of an
/// equation the marker as well. A required constraint has no opposite.
struct Record {
    Symbol marker;
    std::optional<Symbol> opposite;
    Relation relation;
    double constant;
    Tier tier;
};

double directionOf(Relation relation) { return relation == Relation::lessThanOrEqual ? -1 : 1; }

}  // namespace

struct Simplex::State {
    Symbol addSymbol(SymbolKind kind);
    Record makeRecord(Relation relation, double constant, Tier tier);
    Row expressionOf(const std::vector<Term>& terms, const Record& record);
    void addCosts(const Record& record, double change);
    std::optional<Symbol> subjectOf(const Row& expression, const Record& record) const;
    Constraint store(const Record& record);
    std::vector<Constraint> requiredIn(const Row& row, std::optional<Symbol> basic) const;
    std::optional<Symbol> rowToLeave(Symbol marker) const;
    void takeOut(const Record& record);
    void forget(const Record& record);

    Tableau tableau;
    Objective objective;
    Optimizer optimizer{tableau, objective};
    std::vector<std::optional<Record>> records;
    std::vector<Constraint> unusedHandles;
};

Simplex::Simplex() : state_(std::make_unique<State>()) {}

Simplex::~Simplex() = default;

Simplex::Variable Simplex::addVariable() { return state_->addSymbol(SymbolKind::free); }

Simplex::Variable Simplex::addNonNegativeVariable() {
    return state_->addSymbol(SymbolKind::restricted);
}

Simplex::Outcome Simplex::add(const std::vector<Term>& terms, Relation relation, double constant,
                              Tier tier) {
    const Record record = state_->makeRecord(relation, constant, tier);
    Row expression = state_->expressionOf(terms, record);
    const std::optional<Symbol> subject = state_->subjectOf(expression, record);
    if (!subject) {
        Outcome outcome{std::nullopt, state_->requiredIn(expression, std::nullopt)};
        state_->forget(record);
        return outcome;
    }
    state_->optimizer.insert(std::move(expression), *subject);
    const std::optional<Symbol> contradiction = state_->optimizer.restoreFeasibility();
    if (!contradiction) return {state_->store(record), {}};

    const Row& row = state_->tableau.row(*contradiction);
    Outcome outcome{std::nullopt, state_->requiredIn(row, contradiction)};
    state_->optimizer.undo();
    if (*subject != record.marker) state_->optimizer.pivot(*subject, record.marker);
    state_->tableau.erase(record.marker);
    state_->forget(record);
    return outcome;
}

void Simplex::remove(Constraint constraint) {
    const Record record = *std::exchange(state_->records[constraint], std::nullopt);
    state_->unusedHandles.push_back(constraint);
    state_->addCosts(record, -1);
    state_->takeOut(record);
    state_->forget(record);
    state_->optimizer.minimize();
}

bool Simplex::setConstant(Constraint constraint, double constant) {
    Record& record = *state_->records[constraint];
    const double change = directionOf(record.relation) * (record.constant - constant);
    if (change == 0) return true;
    state_->tableau.shift(record.marker, change);
    if (state_->optimizer.restoreFeasibility()) {
        state_->optimizer.undo();
        state_->tableau.shift(record.marker, -change);
        return false;
    }
    record.constant = constant;
    return true;
}

double Simplex::value(Variable variable) const {
    const double value = state_->tableau.value(variable);
    // What is left over from rounding may be below 0.
    return state_->tableau.kind(variable) == SymbolKind::free ? value : std::max(value, 0.0);
}

Symbol Simplex::State::addSymbol(SymbolKind kind) {
    const Symbol symbol = tableau.addSymbol(kind);
    objective.include(symbol);
    return symbol;
}

Record Simplex::State::makeRecord(Relation relation, double constant, Tier tier) {
    const bool isRequired = tier == Tier::required;
    const bool isFixed = isRequired && relation == Relation::equal;
    Record record{addSymbol(isFixed ? SymbolKind::fixed : SymbolKind::restricted), std::nullopt,
                  relation, constant, tier};
    if (!isRequired) record.opposite = addSymbol(SymbolKind::restricted);
    addCosts(record, 1);
    return record;
}

Row Simplex::State::expressionOf(const std::vector<Term>& terms, const Record& record) {
    const double direction = directionOf(record.relation);
    std::vector<Cell> sum;
    sum.reserve(terms.size() + 2);
    for (const auto [variable, coefficient] : terms) {
        sum.push_back({variable, direction * coefficient});
    }
    sum.push_back({record.marker, -1});
    if (record.opposite) sum.push_back({*record.opposite, 1});
    return tableau.express(sum, -direction * record.constant);
}

void Simplex::State::addCosts(const Record& record, double change) {
    const auto add = [&](Symbol symbol) {
        if (tableau.isBasic(symbol)) {
            objective.add(tableau.row(symbol), record.tier, change);
        } else {
            objective.add(symbol, record.tier, change);
        }
    };
    if (!record.opposite) return;
    add(*record.opposite);
    if (record.relation == Relation::equal) add(record.marker);
}

/// The symbol to make basic for a new constraint; none if it cannot hold.
std::optional<Symbol> Simplex::State::subjectOf(const Row& expression, const Record& record) const {
    if (const std::optional<Symbol> subject = optimizer.freeSubject(expression)) return subject;
    if (record.relation != Relation::equal) return record.marker;
    if (const auto subject = optimizer.restrictedSubject(expression)) return subject;
    const bool isImplied = std::fabs(expression.constant) <= feasibilityTolerance;
    return isImplied ? std::optional(record.marker) : std::nullopt;
}

Simplex::Constraint Simplex::State::store(const Record& record) {
    if (unusedHandles.empty()) {
        records.emplace_back(record);
        return static_cast<Constraint>(records.size() - 1);
    }
    const Constraint handle = unusedHandles.back();
    unusedHandles.pop_back();
    records[handle] = record;
    return handle;
}

/// The required constraints that take part in a row, in which no symbol can move without breaking
/// one of them.
std::vector<Simplex::Constraint> Simplex::State::requiredIn(const Row& row,
                                                            std::optional<Symbol> basic) const {
    std::vector<Constraint> required;
    for (Constraint handle = 0; handle < records.size(); ++handle) {
        const std::optional<Record>& record = records[handle];
        if (!record || record->tier != Tier::required) continue;
        if (record->marker == basic || row.coefficientOf(record->marker) != 0) {
            required.push_back(handle);
        }
    }
    return required;
}

/// The row that the marker of a constraint can leave with without another value becoming forbidden;
/// none if it is in no row.
std::optional<Symbol> Simplex::State::rowToLeave(Symbol marker) const {
    enum class Choice { twin, restricted, free };
    using Candidate = std::tuple<Choice, double, Symbol>;
    std::optional<Candidate> best;
    tableau.visitColumn(marker, [&](Symbol basic, double constant, double coefficient) {
        Candidate candidate{Choice::free, 0, basic};
        if (tableau.kind(basic) == SymbolKind::fixed) {
            candidate = {Choice::twin, 0, basic};
        } else if (tableau.kind(basic) == SymbolKind::restricted) {
            candidate = {Choice::restricted, constant / std::fabs(coefficient), basic};
        }
        if (!best || candidate < *best) best = candidate;
    });
    if (!best) return std::nullopt;
    return std::get<Symbol>(*best);
}

/// Takes the equation of a constraint out of the tableau, and with it the last row of its opposite:
/// if that is basic, the marker is in its row only.
void Simplex::State::takeOut(const Record& record) {
    if (!tableau.isBasic(record.marker)) {
        const std::optional<Symbol> leaving = rowToLeave(record.marker);
        if (!leaving) return;
        optimizer.pivot(*leaving, record.marker);
    }
    tableau.erase(record.marker);
}

void Simplex::State::forget(const Record& record) {
    tableau.removeSymbol(record.marker);
    if (record.opposite) tableau.removeSymbol(*record.opposite);
}

}  // namespace marquell::toolkit
