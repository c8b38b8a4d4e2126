// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextPieces.h"

#include <unicode/unorm2.h>

#include <algorithm>

#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

constexpr std::size_t longRun = 64;  // of ASCII; with shorter ones, the cuts cost what they save

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Whether a text may be cut in front of `rest`, which must not be empty.
bool startsAnew(std::string_view rest) {
    if (isContinuation(rest.front())) return false;
    const char32_t first = firstCodePoint(rest);
    if (first < 0x300) return true;
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* composer = unorm2_getNFCInstance(&status);
    return U_FAILURE(status) || unorm2_hasBoundaryBefore(composer, static_cast<UChar32>(first));
}

/// The last place behind `start` and not behind `end` where `isPlace`, else `start`.
template <typename IsPlace>
std::size_t lastPlace(std::size_t start, std::size_t end, const IsPlace& isPlace) {
    while (end > start && !isPlace(end)) --end;
    return end;
}

/// The end of the text, or the last place within the limit where it may be cut.
std::size_t endWithin(std::string_view text, std::size_t start, std::size_t limit) {
    if (text.size() - start <= limit) return text.size();
    const std::size_t most = start + limit;
    const auto startsAnewAt = [text](std::size_t at) { return startsAnew(text.substr(at)); };
    const std::size_t end = lastPlace(start, most, startsAnewAt);
    if (end > start) return end;
    return lastPlace(start, most, [text](std::size_t at) { return !isContinuation(text[at]); });
}

/// The end of a long run of ASCII that begins at `start`, but for a last letter that what follows
/// may join; else where the first such run begins; else `end`.
std::size_t endOfKind(std::string_view text, std::size_t start, std::size_t end) {
    std::size_t at = start;
    while (at < end) {
        const std::size_t run = asciiLength(text.substr(at, end - at));
        if (run >= longRun) return at > start ? at : at + run - (at + run < end ? 1 : 0);
        at += run;
        while (at < end && static_cast<unsigned char>(text[at]) >= 0x80) ++at;
    }
    return end;
}

/// Length of the escape sequence at the start of `text`, if it is one that ends in a letter or
/// digit, else 0.
std::size_t escapeLength(std::string_view text) {
    if (text.starts_with("\\n") || text.starts_with("\\r") || text.starts_with("\\t")) return 2;
    constexpr std::size_t length = std::string_view("\\u001b").size();
    const bool isEscape = text.starts_with("\\u") && text.size() >= length &&
                          text.find_first_not_of("0123456789abcdef", 2) >= length;
    return isEscape ? length : 0;
}

/// The end of the first escape sequence behind `start` and before `end` that is followed by what
/// would join it, else `end`.
std::size_t joinedEscapeEnd(std::string_view text, std::size_t start, std::size_t end) {
    constexpr std::size_t reach = 5;  // of a sequence that begins before `start`
    const std::string_view looked = text.substr(0, end);
    std::size_t at = looked.find('\\', start - std::min(start, reach));
    for (; at != std::string_view::npos; at = looked.find('\\', at + 1)) {
        const std::size_t behind = at + escapeLength(looked.substr(at));
        if (behind > std::max(at, start) && behind < end && !startsAnew(text.substr(behind))) {
            return behind;
        }
    }
    return end;
}

}  // namespace

std::size_t pieceEnd(std::string_view text, std::size_t start, std::size_t limit) {
    const std::size_t end = endOfKind(text, start, endWithin(text, start, limit));
    return joinedEscapeEnd(text, start, end);
}

std::size_t compositionLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && !startsAnew(text.substr(length))) ++length;
    return length;
}

}  // namespace marquell::platform
