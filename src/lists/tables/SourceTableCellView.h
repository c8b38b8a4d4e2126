// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "lists/tables/ListTableCellView.h"

namespace marquell::lists {

/// Shows the path of a source.
class SourceTableCellView : public ListTableCellView {
public:
    SourceTableCellView(const std::string& path, std::function<void()> remove);
};

}  // namespace marquell::lists
