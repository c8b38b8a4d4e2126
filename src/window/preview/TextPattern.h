// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "window/preview/TextRange.h"

namespace marquell::window {

/// Words to look for. Any thread may use it.
class TextPattern {
public:
    TextPattern() = default;
    /// With `matchCase` the bytes have to be the same; else their case and the way of composing
    /// characters may differ. UTF-8, without breaks.
    TextPattern(std::string_view words, bool matchCase);

    bool isEmpty() const { return key_.empty(); }

    /// No hit has more bytes.
    std::size_t longestHit() const;

    /// Adds the places of `text` that match and begin within a range, in order and without overlap.
    /// One that a mark follows is none: there is no "e" in "é", however that is composed. The range
    /// has to begin where a code point does and to be shorter than 4 GB.
    void find(std::string_view text, const TextRange& within, std::vector<TextRange>& found) const;

private:
    std::string key_;
    bool matchCase_ = true;
};

}  // namespace marquell::window
