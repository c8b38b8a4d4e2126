// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MetadataKey.h"

#include <array>
#include <functional>
#include <map>
#include <mutex>
#include <shared_mutex>
#include <string>

namespace marquell::metadata {
namespace {

/// In the order of the enumeration.
constexpr std::array<std::string_view, 8> namedKeys = {
    "retrieved",           "size",       "creation_date", "modification_date", "size_in_bytes",
    "human_readable_size", "size_in_kb", "size_in_mb",
};

class KeyTable {
public:
    KeyTable() {
        for (const std::string_view key : namedKeys) add(key);
    }

    MetadataKey number(std::string_view text) {
        {
            const std::shared_lock lock(mutex_);
            const auto found = numbers_.find(text);
            if (found != numbers_.end()) return found->second;
        }
        const std::lock_guard lock(mutex_);
        return add(text);
    }

private:
    MetadataKey add(std::string_view text) {
        const auto next = static_cast<MetadataKey>(numbers_.size());
        return numbers_.try_emplace(std::string(text), next).first->second;
    }

    std::shared_mutex mutex_;
    std::map<std::string, MetadataKey, std::less<>> numbers_;  // guarded by mutex_
};

}  // namespace

MetadataKey metadataKey(std::string_view text) {
    static KeyTable table;
    return table.number(text);
}

}  // namespace marquell::metadata
