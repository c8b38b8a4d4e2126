// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LinedText.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace marquell::platform {
namespace {

constexpr std::size_t bytesBetweenPlaces = 16 * 1024;
constexpr std::size_t linesBetweenPlaces = 256;

constexpr std::uint64_t everyByte(unsigned char byte) { return byte * 0x0101010101010101ULL; }

/// The highest bit of each byte that is zero.
std::uint64_t zeroBytes(std::uint64_t word) {
    constexpr std::uint64_t low = everyByte(0x7F);
    return ~(((word & low) + low) | word | low);
}

/// The highest bit of each byte that is CR or LF.
std::uint64_t breakBytes(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return zeroBytes(word ^ everyByte('\n')) | zeroBytes(word ^ everyByte('\r'));
}

std::size_t takeFirstByte(std::uint64_t& found) {
    static_assert(std::endian::native == std::endian::little);
    const auto index = static_cast<std::size_t>(std::countr_zero(found)) / 8;
    found &= found - 1;
    return index;
}

/// Calls `visit` with the place of each CR and LF in order. Eight bytes a step, and of most of them
/// no more is known than that they hold none.
template <typename Visit>
void forEachBreakByte(std::string_view text, Visit visit) {
    std::size_t offset = 0;
    for (; offset + 8 <= text.size(); offset += 8) {
        for (std::uint64_t found = breakBytes(text.data() + offset); found != 0;) {
            visit(offset + takeFirstByte(found));
        }
    }
    for (; offset < text.size(); ++offset) {
        if (text[offset] == '\n' || text[offset] == '\r') visit(offset);
    }
}

bool isCrLf(std::string_view text, std::size_t offset) {
    return text[offset] == '\r' && offset + 1 < text.size() && text[offset + 1] == '\n';
}

/// The end of the break that comes first from `start` on; there must be one.
std::size_t behindNextBreak(std::string_view text, std::size_t start) {
    std::size_t at = start;
    while (at + 8 <= text.size()) {
        std::uint64_t found = breakBytes(text.data() + at);
        if (found != 0) {
            at += takeFirstByte(found);
            break;
        }
        at += 8;
    }
    while (text[at] != '\n' && text[at] != '\r') ++at;
    return at + (isCrLf(text, at) ? 2 : 1);
}

std::size_t beforeBreak(std::string_view text, std::size_t next) {
    return next >= 2 && isCrLf(text, next - 2) ? next - 2 : next - 1;
}

}  // namespace

LinedText::LinedText(std::shared_ptr<const TextBuffer> text) : text_(std::move(text)) {
    const std::string_view all = text_->view();
    std::size_t start = 0;
    forEachBreakByte(all, [&](std::size_t at) {
        if (isCrLf(all, at)) return;  // the LF will come
        const std::size_t next = at + 1;
        longestLineLength_ = std::max(longestLineLength_, beforeBreak(all, next) - start);
        start = next;
        addLine(start);
    });
    longestLineLength_ = std::max(longestLineLength_, all.size() - start);
    places_.shrink_to_fit();
}

void LinedText::addLine(std::size_t start) {
    const Place& last = places_.back();
    if (lineCount_ - last.line >= linesBetweenPlaces || start - last.start >= bytesBetweenPlaces) {
        places_.push_back({lineCount_, start});
    }
    ++lineCount_;
}

LinedText::Line LinedText::line(std::size_t index) const {
    const auto behind = std::ranges::upper_bound(places_, index, {}, &Place::line);
    Place at = *std::prev(behind);
    while (at.line < index) at = {at.line + 1, nextStart(at, behind)};
    const std::size_t next = nextStart(at, behind);
    const bool isLast = at.line + 1 == lineCount_;
    return {at.start, isLast ? next : beforeBreak(text(), next), next};
}

std::size_t LinedText::lineAt(std::size_t offset) const {
    const auto behind = std::ranges::upper_bound(places_, offset, {}, &Place::start);
    Place at = *std::prev(behind);
    while (at.line + 1 < lineCount_) {
        const std::size_t next = nextStart(at, behind);
        if (next > offset) break;
        at = {at.line + 1, next};
    }
    return at.line;
}

std::size_t LinedText::nextStart(const Place& at, Places::const_iterator behind) const {
    if (at.line + 1 == lineCount_) return text().size();
    if (behind != places_.end() && at.line + 1 == behind->line) return behind->start;
    return behindNextBreak(text(), at.start);
}

}  // namespace marquell::platform
