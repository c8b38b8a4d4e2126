// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "platform/LargeMemory.h"

namespace marquell::platform {

/// A text that grows at its end. It holds at most an eighth more than its size, and growing
/// a large one moves pages instead of copying bytes, which std::string can't do: at 100 MB its
/// doubling costs both.
class TextBuffer {
public:
    void append(std::string_view text) {
        if (capacity_ - size_ < text.size()) grow(text.size());
        if (text.empty()) return;
        std::memcpy(bytes_.get() + size_, text.data(), text.size());
        size_ += text.size();
    }
    void append(char character) {
        if (capacity_ == size_) grow(1);
        bytes_.get()[size_++] = character;
    }

    /// Empties it and keeps its memory.
    void clear() { size_ = 0; }

    std::string_view view() const { return {bytes_.get(), size_}; }
    std::size_t size() const { return size_; }

private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    void grow(std::size_t needed) {
        const std::size_t capacity = size_ + needed + size_ / 8 + 64;
        char* grown = static_cast<char*>(std::realloc(bytes_.get(), capacity));
        if (grown == nullptr) reportNoMemory();
        static_cast<void>(bytes_.release());
        bytes_.reset(grown);
        capacity_ = capacity;
    }

    std::unique_ptr<char, Free> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace marquell::platform
