// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace marquell::platform {

/// What single bytes of a text become in a format. Made once from a literal table; one walk over a
/// text then does all its replacements at once, none of them seeing what another put there.
class Escapes {
public:
    struct Row {
        char character;
        std::string_view replacement;  ///< must outlive the table
    };

    constexpr Escapes(std::initializer_list<Row> rows) { add(rows); }

    /// This table and more rows.
    constexpr Escapes with(std::initializer_list<Row> rows) const {
        Escapes extended = *this;
        extended.add(rows);
        return extended;
    }

    /// Whether anything in the text is to be replaced.
    bool concerns(std::string_view text) const { return nextReplaced(text, 0) < text.size(); }

    /// Appends the text with its replacements to a `sink` that takes string views.
    template <typename Sink>
    void append(Sink& sink, std::string_view text) const {
        std::size_t start = 0;
        for (;;) {
            const std::size_t found = nextReplaced(text, start);
            sink.append(text.substr(start, found - start));
            if (found == text.size()) return;
            sink.append(replacements_[static_cast<unsigned char>(text[found])]);
            start = found + 1;
        }
    }

private:
    static constexpr std::size_t block = 8;

    constexpr void add(std::initializer_list<Row> rows) {
        for (const Row& row : rows) {
            const auto byte = static_cast<unsigned char>(row.character);
            isReplaced_[byte] = true;
            replacements_[byte] = row.replacement;
        }
    }

    /// Where the next replacement stands at or behind `start`, else the end.
    std::size_t nextReplaced(std::string_view text, std::size_t start) const {
        std::size_t from = start;
        while (text.size() - from >= block && !isAnyReplaced(text, from)) from += block;
        // What is left may end in a whole block too, whose first bytes were looked at before.
        const bool hasBlock = text.size() - start >= block && text.size() - from < block;
        if (hasBlock && !isAnyReplaced(text, text.size() - block)) return text.size();
        while (from < text.size() && !isReplacedAt(text, from)) ++from;
        return from;
    }
    /// In the block from there on, with one branch: nearly all texts have nothing to replace.
    bool isAnyReplaced(std::string_view text, std::size_t from) const {
        return [&]<std::size_t... at>(std::index_sequence<at...>) {
            return (static_cast<unsigned>(isReplacedAt(text, from + at)) | ...) != 0;
        }
        (std::make_index_sequence<block>());
    }
    bool isReplacedAt(std::string_view text, std::size_t at) const {
        return isReplaced_[static_cast<unsigned char>(text[at])];
    }

    std::array<bool, 256> isReplaced_ = {};  // apart, since it is all that most bytes look at
    std::array<std::string_view, 256> replacements_ = {};
};

}  // namespace marquell::platform
