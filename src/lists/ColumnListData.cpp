// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/ColumnListData.h"

#include <utility>

namespace marquell::lists {

ColumnListData::ColumnListData(std::shared_ptr<platform::UserDefaults> defaults)
    : StoredListData("Columns", "marquell_columns", std::move(defaults)) {}

void ColumnListData::add(const std::string& columnId) { insertAtRow(value().size(), {columnId}); }

void ColumnListData::insertAtRow(std::size_t row, const std::vector<std::string>& titles) {
    const auto before = storedList();
    if (!before || row > before->size()) return;
    std::vector<std::string> list = before->texts();
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(row), titles.begin(), titles.end());
    store(std::move(list), *before);
}

}  // namespace marquell::lists
