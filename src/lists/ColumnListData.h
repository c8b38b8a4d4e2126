// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "lists/StoredListData.h"

namespace marquell::lists {

/// The ids of the columns that the output has, in order. An id may be there more than once: its
/// column is then printed as often.
class ColumnListData : public StoredListData {
public:
    /// The pasteboard type of column ids that are dragged in from elsewhere.
    static constexpr const char* externalPasteboardType = "marquell_external_columns";

    explicit ColumnListData(std::shared_ptr<platform::UserDefaults> defaults);

    // These do nothing when the key holds no list of texts, or the list has no such row.

    void add(const std::string& columnId);
    /// The ids in their order, the first at `row`, which is the list's count at most.
    void insertAtRow(std::size_t row, const std::vector<std::string>& titles);
};

}  // namespace marquell::lists
