// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Pasteboard.h"

namespace marquell::platform {

void MemoryPasteboard::clearContents() { entries_.clear(); }

void MemoryPasteboard::declareTypes(const std::vector<PasteboardType>& types) {
    entries_.clear();
    for (const PasteboardType type : types) entries_.push_back({type, nullptr});
}

void MemoryPasteboard::setData(PasteboardType type, std::shared_ptr<const TextBuffer> bytes) {
    for (Entry& entry : entries_) {
        if (entry.type == type) entry.bytes = bytes;
    }
}

std::vector<PasteboardType> MemoryPasteboard::types() const {
    std::vector<PasteboardType> types;
    for (const Entry& entry : entries_) types.push_back(entry.type);
    return types;
}

std::optional<std::string_view> MemoryPasteboard::data(PasteboardType type) const {
    for (const Entry& entry : entries_) {
        if (entry.type == type && entry.bytes != nullptr) return entry.bytes->view();
    }
    return std::nullopt;
}

}  // namespace marquell::platform
