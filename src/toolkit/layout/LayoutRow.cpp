// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutRow.h"

namespace marquell::toolkit {

Tier tierOf(LayoutPriority priority) {
    switch (priority) {
        case LayoutPriority::required:
            return Tier::required;
        case LayoutPriority::high:
            return Tier::high;
        case LayoutPriority::windowSize:
            return Tier::window;
        case LayoutPriority::labelHugging:
            return Tier::labelHugging;
        case LayoutPriority::low:
            return Tier::low;
        default:
            return Tier::lowest;
    }
}

bool adapt(Simplex& simplex, std::optional<LayoutRow>& row, double constant, Tier tier) {
    if (!row) return false;
    if (row->tier == tier) {
        if (row->constant == constant) return true;
        if (simplex.setConstant(row->handle, constant)) {
            row->constant = constant;
            return true;
        }
    }
    withdraw(simplex, row);
    return false;
}

void withdraw(Simplex& simplex, std::optional<LayoutRow>& row) {
    if (row) simplex.remove(row->handle);
    row.reset();
}

}  // namespace marquell::toolkit
