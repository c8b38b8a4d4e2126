// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "platform/LargeMemory.h"

namespace marquell::platform {

/// A text that grows at its end. Of a large one only what is written takes memory, and growing it
/// copies nothing.
class TextBuffer {
public:
    void append(std::string_view text) {
        if (memory_.size() - size_ < text.size()) grow(text.size());
        if (text.empty()) return;
        copy(memory_.data() + size_, text);
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
    /// Most pieces of a text are short, and calling for a copy takes longer than making it.
    static void copy(char* target, std::string_view text) {
        if (text.size() > 16) {
            std::memcpy(target, text.data(), text.size());
        } else if (text.size() >= 8) {
            copyEnds<8>(target, text);
        } else if (text.size() >= 4) {
            copyEnds<4>(target, text);
        } else {
            for (const char character : text) *target++ = character;
        }
    }
    /// The first and the last `count` bytes, which may overlap.
    template <std::size_t count>
    static void copyEnds(char* target, std::string_view text) {
        std::array<char, count> first{};
        std::array<char, count> last{};
        std::memcpy(first.data(), text.data(), count);
        std::memcpy(last.data(), text.data() + text.size() - count, count);
        std::memcpy(target, first.data(), count);
        std::memcpy(target + text.size() - count, last.data(), count);
    }

    void grow(std::size_t needed) { memory_.growTo(size_ + needed + size_ / 2 + 64); }

    GrowingMemory memory_;
    std::size_t size_ = 0;
};

}  // namespace marquell::platform
