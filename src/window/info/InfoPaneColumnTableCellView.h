// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "toolkit/tables/TableCellView.h"

namespace marquell::window {

/// The title of a column, and behind it what tells it from equally named ones of other categories.
class InfoPaneColumnTableCellView : public toolkit::TableCellView {
public:
    explicit InfoPaneColumnTableCellView(std::string_view columnId);

protected:
    void setLabelColors(bool highlighted) override;
};

}  // namespace marquell::window
