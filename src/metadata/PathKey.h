// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace marquell::metadata {

/// Where the store found a path's record, kept by whoever asks often for the same path. Belongs to
/// the store, which changes it under its lock; others may only hand it to prefetch().
struct RecordPlace {
    std::atomic<void*> record = nullptr;
    std::atomic<std::uint32_t> generation = 0;  ///< of the store's content; 0 for never found

    /// Asks memory for the record that a look-up will want soon.
    void prefetch() const {
        const auto* bytes = static_cast<const char*>(record.load(std::memory_order_relaxed));
        __builtin_prefetch(bytes);
        __builtin_prefetch(bytes + 64);
    }
};

/// A full path with what saves the store from searching for it. The path's bytes and the place
/// belong to the caller; a place serves one path only.
struct PathKey {
    PathKey(std::string_view fullPath)  // NOLINT(google-explicit-constructor): any path serves
        : path(fullPath), hash(std::hash<std::string_view>{}(fullPath)) {}
    PathKey(std::string_view fullPath, std::size_t knownHash, RecordPlace& knownPlace)
        : path(fullPath), hash(knownHash), place(&knownPlace) {}

    std::string_view path;
    std::size_t hash;
    RecordPlace* place = nullptr;
};

}  // namespace marquell::metadata
