// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/KeyValueObservable.h"

namespace marquell::platform {

/// The observers of an object's keys. Its owner guards it; only notify() is called without a lock,
/// and needs neither this object nor its owner any more.
class KeyObservers {
public:
    struct Entry {
        KeyValueObservable::ObserverId id = 0;
        KeyValueObservable::Observer observer;
        std::atomic<bool> isRemoved = false;
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;

    KeyValueObservable::ObserverId add(const std::string& key,
                                       KeyValueObservable::Observer observer);

    /// The removed observer, null if there is none; to be let go of outside of all locks, as its
    /// end may run code of others.
    std::shared_ptr<Entry> remove(KeyValueObservable::ObserverId id);

    bool isEmpty() const { return entries_.empty(); }

    /// Those of one key, in the order of their adding.
    Entries of(const std::string& key) const;

    /// Calls those that are not removed by their turn.
    static void notify(const Entries& entries);

private:
    KeyValueObservable::ObserverId lastId_ = 0;
    std::multimap<std::string, std::shared_ptr<Entry>> entries_;
};

}  // namespace marquell::platform
