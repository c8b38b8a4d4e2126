// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace marquell::toolkit {

/// A set of small numbers, visited in their order. Members come and go in the innermost loop of the
/// solver, so that each is one bit.
class SlotSet {
public:
    void insert(std::uint32_t slot) {
        if (slot / 64 >= words_.size()) words_.resize(slot / 64 + 1);
        words_[slot / 64] |= bitOf(slot);
    }

    void erase(std::uint32_t slot) { words_[slot / 64] &= ~bitOf(slot); }

    void clear() { words_.clear(); }

    std::size_t size() const {
        std::size_t size = 0;
        for (const std::uint64_t word : words_)
            size += static_cast<std::size_t>(std::popcount(word));
        return size;
    }

    /// `visit` may change other sets, but not this one.
    template <typename Visit>
    void forEach(Visit visit) const {
        for (std::uint32_t i = 0; i < words_.size(); ++i) {
            for (std::uint64_t rest = words_[i]; rest != 0; rest &= rest - 1) {
                visit(i * 64 + static_cast<std::uint32_t>(std::countr_zero(rest)));
            }
        }
    }

private:
    static std::uint64_t bitOf(std::uint32_t slot) { return std::uint64_t{1} << (slot % 64); }

    std::vector<std::uint64_t> words_;
};

}  // namespace marquell::toolkit
