// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "toolkit/tables/TableCellView.h"

namespace marquell::lists {

/// A row of a list, with the button that removes it.
class ListTableCellView : public toolkit::TableCellView {
protected:
    /// `name` is what the row is called by.
    ListTableCellView(const QString& name, std::function<void()> remove);

    void setLabelColors(bool highlighted) override;
};

}  // namespace marquell::lists
