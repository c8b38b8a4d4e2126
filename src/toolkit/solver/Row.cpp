// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/solver/Row.h"

#include <algorithm>

namespace marquell::toolkit {
namespace {

bool isBefore(const Cell& cell, Symbol symbol) { return cell.symbol < symbol; }

}  // namespace

double Row::coefficientOf(Symbol symbol) const {
    const auto cell = std::lower_bound(cells.begin(), cells.end(), symbol, isBefore);
    return cell != cells.end() && cell->symbol == symbol ? cell->coefficient : 0;
}

void Row::insert(Cell cell) {
    cells.insert(std::lower_bound(cells.begin(), cells.end(), cell.symbol, isBefore), cell);
}

void Row::remove(Symbol symbol) {
    std::erase_if(cells, [&](const Cell& cell) { return cell.symbol == symbol; });
}

}  // namespace marquell::toolkit
