// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace marquell::window {

/// Bytes of a text from `start` up to `end`.
struct TextRange {
    std::size_t start = 0;
    std::size_t end = 0;

    bool isEmpty() const { return start == end; }
    std::size_t length() const { return end - start; }
    bool operator==(const TextRange&) const = default;
};

}  // namespace marquell::window
