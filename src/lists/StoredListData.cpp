// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/StoredListData.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

namespace marquell::lists {
namespace {

using platform::TextList;
using Texts = std::vector<std::string>;

/// The list without the rows, and the rows.
std::pair<Texts, Texts> split(const TextList& list, const IndexSet& rows) {
    Texts remaining;
    Texts taken;
    std::size_t row = 0;
    for (const std::string& text : list) {
        (rows.contains(row++) ? taken : remaining).push_back(text);
    }
    return {std::move(remaining), std::move(taken)};
}

}  // namespace

StoredListData::StoredListData(std::string key, std::string pasteboardType,
                               std::shared_ptr<platform::UserDefaults> defaults)
    : storageKey(std::move(key)),
      internalPasteboardType(std::move(pasteboardType)),
      defaults_(std::move(defaults)) {}

std::optional<TextList> StoredListData::storedList() const {
    const auto object = defaults_->object(storageKey);
    const auto* list = object ? std::get_if<TextList>(&*object) : nullptr;
    return list != nullptr ? std::optional(*list) : std::nullopt;
}

TextList StoredListData::value() const { return storedList().value_or(TextList()); }

void StoredListData::store(Texts list, const TextList& before) {
    if (before.texts() != list) defaults_->setObject(TextList(std::move(list)), storageKey);
}

void StoredListData::deleteAt(const IndexSet& rows) {
    const auto list = storedList();
    if (list) store(split(*list, rows).first, *list);
}

void StoredListData::move(const IndexSet& rows, std::size_t toRow) {
    const auto list = storedList();
    if (!list) return;
    auto [moved, taken] = split(*list, rows);
    const std::size_t target = std::min(toRow, list->size());
    const auto before = std::distance(rows.begin(), rows.lower_bound(target));
    const auto place = static_cast<std::ptrdiff_t>(target) - before;
    moved.insert(moved.begin() + place, std::make_move_iterator(taken.begin()),
                 std::make_move_iterator(taken.end()));
    store(std::move(moved), *list);
}

}  // namespace marquell::lists
