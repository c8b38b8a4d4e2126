// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/KeyObservers.h"

#include <algorithm>
#include <utility>

namespace marquell::platform {

KeyValueObservable::ObserverId KeyObservers::add(const std::string& key,
                                                 KeyValueObservable::Observer observer) {
    auto entry = std::make_shared<Entry>();
    entry->id = ++lastId_;
    entry->observer = std::move(observer);
    entries_.emplace(key, std::move(entry));
    return lastId_;
}

std::shared_ptr<KeyObservers::Entry> KeyObservers::remove(KeyValueObservable::ObserverId id) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [id](const auto& each) { return each.second->id == id; });
    if (found == entries_.end()) return nullptr;
    std::shared_ptr<Entry> entry = std::move(found->second);
    entry->isRemoved = true;
    entries_.erase(found);
    return entry;
}

KeyObservers::Entries KeyObservers::of(const std::string& key) const {
    Entries entries;
    const auto [begin, end] = entries_.equal_range(key);
    for (auto each = begin; each != end; ++each) entries.push_back(each->second);
    return entries;
}

void KeyObservers::notify(const Entries& entries) {
    for (const auto& entry : entries) {
        if (!entry->isRemoved) entry->observer();
    }
}

}  // namespace marquell::platform
