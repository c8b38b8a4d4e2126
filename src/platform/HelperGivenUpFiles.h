// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <deque>
#include <mutex>
#include <set>

namespace marquell::platform {

/// The files that helpers fail over, as they were then. Forgets the oldest beyond a bound. Any
/// thread.
class HelperGivenUpFiles {
public:
    void add(const struct ::stat& status);
    /// Whether it was added and is still the same by all that its status says of its content.
    bool contains(const struct ::stat& status) const;

private:
    using Key = std::array<std::uint64_t, 5>;
    static Key keyOf(const struct ::stat& status);

    mutable std::mutex mutex_;
    std::set<Key> keys_;     // guarded by mutex_
    std::deque<Key> order_;  // guarded by mutex_, the oldest first
};

}  // namespace marquell::platform
