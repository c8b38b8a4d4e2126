// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/UserDefaults.h"

namespace marquell::lists {

/// Rows of a list, counted from 0.
using IndexSet = std::set<std::size_t>;

/// An ordered list of texts that lives in the settings under a key, and nowhere else. Each change
/// is one write, whatever the number of rows; what would change nothing writes nothing, since every
/// write makes the lists anew that depend on it. Main thread only.
class StoredListData {
public:
    StoredListData(const StoredListData&) = delete;
    StoredListData& operator=(const StoredListData&) = delete;

    const std::string storageKey;
    /// The pasteboard type of rows that are dragged within their table.
    const std::string internalPasteboardType;
    /// Rows of the drag in progress.
    std::optional<IndexSet> draggedIndices;

    /// Empty if the key holds something else than a list of texts.
    platform::TextList value() const;

    // These do nothing when the key holds no list of texts. Rows that the list doesn't have are
    // left out; a target behind its end is its end.

    void deleteAt(const IndexSet& rows);
    /// Puts the rows, in their order, before the row that is `toRow` now.
    void move(const IndexSet& rows, std::size_t toRow);

protected:
    StoredListData(std::string key, std::string pasteboardType,
                   std::shared_ptr<platform::UserDefaults> defaults);
    ~StoredListData() = default;

    /// Absent if the key holds something else than a list of texts, or nothing.
    std::optional<platform::TextList> storedList() const;
    /// Writes `list` unless it is what `before` is.
    void store(std::vector<std::string> list, const platform::TextList& before);

    platform::UserDefaults& defaults() const { return *defaults_; }

private:
    const std::shared_ptr<platform::UserDefaults> defaults_;
};

}  // namespace marquell::lists
