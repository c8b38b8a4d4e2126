// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "toolkit/look/FocusRing.h"
#include "toolkit/tables/CellTable.h"

namespace marquell::lists {

/// A table of one column within a frame of one point, about which the focus ring lies.
class ListTable : public toolkit::CellTable, public toolkit::FocusRingShaped {
public:
    explicit ListTable(toolkit::CellTableSource& source);

    QRectF focusRingRect() const override;
    double focusRingRadius() const override { return 0; }

    /// Called when rows have got another height.
    std::function<void()> metricsDidChange;

protected:
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;
};

}  // namespace marquell::lists
