// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marquell::window {

/// A piece of UTF-8 text in the bytes that a search compares: its own, or the key by which neither
/// case nor the way of composing characters counts. The piece has to outlive it.
class ComparedText {
public:
    ComparedText(std::string_view piece, bool matchCase);

    std::string_view bytes() const { return bytes_; }

    /// The byte of the piece that a compared one comes from, or the end.
    std::size_t sourceOf(std::size_t at) const { return sources_.empty() ? at : sources_[at]; }
    /// Whether a compared byte, or the end, begins what comes from a code point of the piece.
    bool isBoundary(std::size_t at) const {
        return sources_.empty() || at == 0 || sources_[at] != sources_[at - 1];
    }

private:
    /// For a piece of which only the beginning, up to `start`, is ASCII.
    void addFrom(std::size_t start, std::string_view piece);
    void addSources(std::size_t start, std::size_t length);

    std::string_view bytes_;
    std::string key_;
    std::vector<std::uint32_t> sources_;  // of each byte of the key, and the end; if they differ
};

}  // namespace marquell::window
