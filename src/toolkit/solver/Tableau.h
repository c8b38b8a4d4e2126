// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "toolkit/solver/Row.h"
#include "toolkit/solver/SlotSet.h"

namespace marquell::toolkit {

enum class SymbolKind : std::uint8_t {
    free,        // a variable of any sign; once basic it stays so until a constraint goes
    restricted,  // never below 0
    fixed        // always 0: the marker of a required equation
};

/// Equations that give basic symbols in terms of the others, which are 0. Two rules hold
/// throughout: rows of restricted symbols contain no free ones, and rows of fixed ones only fixed
/// ones (such a row is an equation that others imply).
class Tableau {
public:
    Symbol addSymbol(SymbolKind kind);

    /// The symbol must not be basic; its number is used again.
    void removeSymbol(Symbol symbol);

    std::size_t symbolCount() const { return symbols_.size(); }
    SymbolKind kind(Symbol symbol) const { return symbols_[symbol].kind; }
    bool isBasic(Symbol symbol) const { return symbols_[symbol].slot != noSlot; }
    const Row& row(Symbol basic) const { return rows_[symbols_[basic].slot].row; }
    double value(Symbol symbol) const { return isBasic(symbol) ? row(symbol).constant : 0; }

    /// In how many rows a symbol is that is not basic.
    std::size_t columnHeight(Symbol symbol) const { return symbols_[symbol].column.size(); }

    /// Calls `visit(basic, constant, coefficient)` for each row with the symbol.
    template <typename Visit>
    void visitColumn(Symbol symbol, Visit visit) const;

    /// The sum in terms of the symbols that are not basic.
    Row express(const std::vector<Cell>& sum, double constant);

    /// Takes `expression` = 0 into the tableau, in which it has to be linearly independent, by
    /// making `subject`, a symbol of it, basic.
    void insert(Row expression, Symbol subject);

    /// Lets a symbol of the row of `leaving` take its place as basic symbol.
    void pivot(Symbol leaving, Symbol entering);

    void erase(Symbol basic);

    /// Adds `change` to the value of a symbol, whether basic or not, and counts it from there.
    void shift(Symbol symbol, double change);

    /// The first of the basic symbols whose value is not allowed.
    std::optional<Symbol> firstInfeasible();

private:
    using Slot = std::uint32_t;
    static constexpr Slot noSlot = ~Slot{0};

    struct SymbolState {
        SymbolKind kind;
        Slot slot;       // of its row, if it is basic
        SlotSet column;  // of the rows it is in, if it is not
    };
    struct BasicRow {
        Symbol basic = 0;
        Row row;
    };

    void addToSums(Cell cell);
    void solve(Row& row, Symbol subject);
    void substitute(Slot definition);
    void addMultiple(Slot target, const Row& source, Symbol replaced);
    bool isInfeasible(Slot slot) const;
    void noteIfInfeasible(Slot slot);

    std::vector<SymbolState> symbols_;
    std::vector<Symbol> unusedSymbols_;
    std::vector<BasicRow> rows_;
    std::vector<Slot> unusedSlots_;
    std::vector<Slot> maybeInfeasible_;
    std::vector<Cell> merged_;
    std::vector<double> sums_;  // by symbol; all 0 between calls
    std::vector<Symbol> summed_;
};

template <typename Visit>
void Tableau::visitColumn(Symbol symbol, Visit visit) const {
    symbols_[symbol].column.forEach([&](Slot slot) {
        const auto& [basic, row] = rows_[slot];
        visit(basic, row.constant, row.coefficientOf(symbol));
    });
}

}  // namespace marquell::toolkit
