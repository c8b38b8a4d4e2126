// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Utf8.h"

namespace marquell::window {

struct CodePoint {
    char32_t character;
    std::size_t length;  ///< in bytes
};

/// What a UTF-8 text that is not empty begins with; U+FFFD for a byte that belongs to no code
/// point.
inline CodePoint firstOf(std::string_view text) {
    const std::size_t length = platform::utf8SequenceLength(text);
    if (length == 0) return {0xfffd, 1};
    return {platform::firstCodePoint(text), length};
}

/// Calls `visit(character, start, length)` with each code point of a UTF-8 text.
template <typename Visit>
void forEachCodePoint(std::string_view text, Visit visit) {
    for (std::size_t at = 0; at < text.size();) {
        const auto [character, length] = firstOf(text.substr(at));
        visit(character, at, length);
        at += length;
    }
}

/// Whether a code point, or a byte that belongs to none, may begin there.
inline bool beginsCodePoint(std::string_view text, std::size_t offset) {
    return offset >= text.size() || (static_cast<unsigned char>(text[offset]) & 0xc0) != 0x80;
}

/// A piece of UTF-8 text (4 GB at most) in the units that Qt takes, which remember their bytes.
class DecodedText {
public:
    DecodedText() = default;
    explicit DecodedText(std::string_view text);

    /// Adds what stands for the next `length` bytes.
    void add(QStringView shown, std::size_t length);
    void add(char32_t character, std::size_t length);

    const QString& text() const { return text_; }

    /// The byte at which what the unit belongs to begins; behind the last unit, the end.
    std::size_t offsetOf(qsizetype unit) const;
    /// The first unit of what the byte belongs to.
    qsizetype unitOf(std::size_t offset) const;

private:
    QString text_;
    std::vector<std::uint32_t> offsets_;  // of each unit
    std::uint32_t end_ = 0;
};

}  // namespace marquell::window
