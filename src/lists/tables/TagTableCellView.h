// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "toolkit/tables/TableCellView.h"

namespace marquell::lists {

/// The title of a column, with the button that adds it to the column list.
class TagTableCellView : public toolkit::TableCellView {
public:
    /// `abbreviation` tells the column from equally named ones; it may be empty.
    TagTableCellView(const QString& title, const QString& abbreviation, std::function<void()> add);

protected:
    void setLabelColors(bool highlighted) override;
};

}  // namespace marquell::lists
