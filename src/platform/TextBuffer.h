// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include "platform/LargeMemory.h"

namespace marquell::platform {

/// A text that grows at its end. It holds at most an eighth more than its size, and growing a large
/// one copies nothing, which std::string can't do: at 100 MB its doubling costs both.
class TextBuffer {
public:
    void append(std::string_view text) {
        if (memory_.size() - size_ < text.size()) grow(text.size());
        if (text.empty()) return;
        std::memcpy(memory_.data() + size_, text.data(), text.size());
        size_ += text.size();
    }
    void append(char character) {
        if (memory_.size() == size_) grow(1);
        memory_.data()[size_++] = character;
    }

    /// Empties it and keeps its memory.
    void clear() { size_ = 0; }

    std::string_view view() const { return {memory_.data(), size_}; }
    std::size_t size() const { return size_; }

private:
    void grow(std::size_t needed) { memory_.growTo(size_ + needed + size_ / 2 + 64); }

    GrowingMemory memory_;
    std::size_t size_ = 0;
};

}  // namespace marquell::platform
