// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "toolkit/tables/TableCellView.h"

namespace marquell::lists {

/// Says what a column holds.
class TagTableDescriptionCellView : public toolkit::TableCellView {
public:
    /// Says nothing, in a separator.
    TagTableDescriptionCellView() = default;
    /// `title` is the column's.
    explicit TagTableDescriptionCellView(const QString& title);

protected:
    void setLabelColors(bool highlighted) override;
};

}  // namespace marquell::lists
