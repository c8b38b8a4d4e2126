// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/solver/Tableau.h"

#include <algorithm>
#include <utility>

namespace marquell::toolkit {

Symbol Tableau::addSymbol(SymbolKind kind) {
    if (unusedSymbols_.empty()) {
        symbols_.push_back({kind, noSlot, {}});
        return static_cast<Symbol>(symbols_.size() - 1);
    }
    const Symbol symbol = unusedSymbols_.back();
    unusedSymbols_.pop_back();
    symbols_[symbol].kind = kind;
    return symbol;
}

void Tableau::removeSymbol(Symbol symbol) {
    symbols_[symbol].column.forEach([&](Slot slot) { rows_[slot].row.remove(symbol); });
    symbols_[symbol].column.clear();
    unusedSymbols_.push_back(symbol);
}

Row Tableau::express(const std::vector<Cell>& sum, double constant) {
    Row result{constant, {}};
    sums_.resize(symbols_.size());
    for (const Cell& cell : sum) {
        if (!isBasic(cell.symbol)) {
            addToSums(cell);
            continue;
        }
        const Row& definition = row(cell.symbol);
        result.constant += cell.coefficient * definition.constant;
        for (const auto [symbol, coefficient] : definition.cells) {
            addToSums({symbol, cell.coefficient * coefficient});
        }
    }
    std::sort(summed_.begin(), summed_.end());
    for (const Symbol symbol : summed_) {
        const double coefficient = std::exchange(sums_[symbol], 0);
        if (!isNegligible(coefficient)) result.cells.push_back({symbol, coefficient});
    }
    summed_.clear();
    return result;
}

void Tableau::insert(Row expression, Symbol subject) {
    Slot slot = static_cast<Slot>(rows_.size());
    if (unusedSlots_.empty()) {
        rows_.emplace_back();
    } else {
        slot = unusedSlots_.back();
        unusedSlots_.pop_back();
    }
    for (const Cell& cell : expression.cells) symbols_[cell.symbol].column.insert(slot);
    rows_[slot] = {subject, std::move(expression)};
    symbols_[subject].column.erase(slot);
    solve(rows_[slot].row, subject);
    substitute(slot);
}

void Tableau::pivot(Symbol leaving, Symbol entering) {
    const Slot slot = std::exchange(symbols_[leaving].slot, noSlot);
    auto& [basic, row] = rows_[slot];
    row.insert({leaving, -1});
    symbols_[leaving].column.insert(slot);
    basic = entering;
    symbols_[entering].column.erase(slot);
    solve(row, entering);
    substitute(slot);
}

void Tableau::erase(Symbol basic) {
    const Slot slot = std::exchange(symbols_[basic].slot, noSlot);
    Row& row = rows_[slot].row;
    for (const Cell& cell : row.cells) symbols_[cell.symbol].column.erase(slot);
    row = {};
    unusedSlots_.push_back(slot);
}

void Tableau::shift(Symbol symbol, double change) {
    if (isBasic(symbol)) {
        const Slot slot = symbols_[symbol].slot;
        rows_[slot].row.constant += change;
        noteIfInfeasible(slot);
        return;
    }
    symbols_[symbol].column.forEach([&](Slot slot) {
        Row& row = rows_[slot].row;
        row.constant -= row.coefficientOf(symbol) * change;
        noteIfInfeasible(slot);
    });
}

std::optional<Symbol> Tableau::firstInfeasible() {
    std::erase_if(maybeInfeasible_, [this](Slot slot) { return !isInfeasible(slot); });
    std::optional<Symbol> first;
    for (const Slot slot : maybeInfeasible_) {
        const Symbol basic = rows_[slot].basic;
        if (!first || basic < *first) first = basic;
    }
    return first;
}

void Tableau::addToSums(Cell cell) {
    if (sums_[cell.symbol] == 0) summed_.push_back(cell.symbol);
    sums_[cell.symbol] += cell.coefficient;
}

/// Turns `row` = 0 into what the subject equals.
void Tableau::solve(Row& row, Symbol subject) {
    const double factor = -1 / row.coefficientOf(subject);
    row.remove(subject);
    row.constant *= factor;
    for (Cell& cell : row.cells) cell.coefficient *= factor;
}

/// Replaces the symbol that has just become basic wherever else it is.
void Tableau::substitute(Slot definition) {
    const BasicRow& source = rows_[definition];
    SymbolState& basic = symbols_[source.basic];
    basic.slot = definition;
    basic.column.forEach([&](Slot slot) { addMultiple(slot, source.row, source.basic); });
    basic.column.clear();
    noteIfInfeasible(definition);
}

void Tableau::addMultiple(Slot target, const Row& source, Symbol replaced) {
    Row& row = rows_[target].row;
    const double factor = row.coefficientOf(replaced);
    row.constant += factor * source.constant;
    merged_.clear();
    auto theirs = source.cells.begin();
    const auto takeTheirs = [&] {
        if (const double product = factor * theirs->coefficient; !isNegligible(product)) {
            merged_.push_back({theirs->symbol, product});
            symbols_[theirs->symbol].column.insert(target);
        }
        ++theirs;
    };
    for (const Cell& cell : row.cells) {
        while (theirs != source.cells.end() && theirs->symbol < cell.symbol) takeTheirs();
        if (cell.symbol == replaced) continue;
        if (theirs == source.cells.end() || theirs->symbol != cell.symbol) {
            merged_.push_back(cell);
            continue;
        }
        const double sum = cell.coefficient + factor * theirs->coefficient;
        if (isNegligible(sum)) {
            symbols_[cell.symbol].column.erase(target);
        } else {
            merged_.push_back({cell.symbol, sum});
        }
        ++theirs;
    }
    while (theirs != source.cells.end()) takeTheirs();
    row.cells.swap(merged_);
    noteIfInfeasible(target);
}

bool Tableau::isInfeasible(Slot slot) const {
    const auto& [basic, row] = rows_[slot];
    // A row that is unused now is empty, and its constant 0.
    switch (symbols_[basic].kind) {
        case SymbolKind::free:
            return false;
        case SymbolKind::restricted:
            return row.constant < -feasibilityTolerance;
        case SymbolKind::fixed:
            return std::fabs(row.constant) > feasibilityTolerance;
    }
    return false;
}

void Tableau::noteIfInfeasible(Slot slot) {
    if (isInfeasible(slot)) maybeInfeasible_.push_back(slot);
}

}  // namespace marquell::toolkit
