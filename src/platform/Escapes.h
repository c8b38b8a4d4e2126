// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

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

    /// Appends the text with its replacements to a `sink` that takes string views.
    template <typename Sink>
    void append(Sink& sink, std::string_view text) const {
        std::size_t start = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            if (!isReplaced_[byte]) continue;
            sink.append(text.substr(start, i - start));
            sink.append(replacements_[byte]);
            start = i + 1;
        }
        sink.append(text.substr(start));
    }

private:
    constexpr void add(std::initializer_list<Row> rows) {
        for (const Row& row : rows) {
            const auto byte = static_cast<unsigned char>(row.character);
            isReplaced_[byte] = true;
            replacements_[byte] = row.replacement;
        }
    }

    std::array<bool, 256> isReplaced_ = {};  // apart, since it is all that most bytes look at
    std::array<std::string_view, 256> replacements_ = {};
};

}  // namespace marquell::platform
