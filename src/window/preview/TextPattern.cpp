// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextPattern.h"

#include <QChar>
#include <algorithm>
#include <cstring>
#include <optional>

#include "platform/Utf8.h"
#include "window/preview/ComparedText.h"
#include "window/preview/DecodedText.h"

namespace marquell::window {
namespace {

constexpr std::size_t longestSourceOfByte = 3;  // U+212A folds to a "k"

bool isFollowedByMark(std::string_view text, std::size_t offset) {
    const std::string_view rest = text.substr(offset);
    if (rest.empty() || platform::asciiLength(rest.substr(0, 1)) == 1) return false;
    return platform::utf8SequenceLength(rest) > 0 && QChar::isMark(platform::firstCodePoint(rest));
}

std::optional<std::size_t> findBytes(std::string_view bytes, std::string_view key,
                                     std::size_t from) {
    const void* found = memmem(bytes.data() + from, bytes.size() - from, key.data(), key.size());
    if (found == nullptr) return std::nullopt;
    return static_cast<std::size_t>(static_cast<const char*>(found) - bytes.data());
}

}  // namespace

TextPattern::TextPattern(std::string_view words, bool matchCase)
    : key_(ComparedText(words, matchCase).bytes()), matchCase_(matchCase) {}

std::size_t TextPattern::longestHit() const {
    return key_.size() * (matchCase_ ? 1 : longestSourceOfByte);
}

void TextPattern::find(std::string_view text, const TextRange& within,
                       std::vector<TextRange>& found) const {
    if (isEmpty()) return;
    std::size_t end = std::min(within.end + longestHit(), text.size());
    while (!beginsCodePoint(text, end)) ++end;
    const ComparedText compared(text.substr(within.start, end - within.start), matchCase_);
    std::size_t from = 0;
    while (const auto at = findBytes(compared.bytes(), key_, from)) {
        const std::size_t behind = *at + key_.size();
        const TextRange hit = {within.start + compared.sourceOf(*at),
                               within.start + compared.sourceOf(behind)};
        if (hit.start >= within.end) return;
        const bool isWhole = compared.isBoundary(*at) && compared.isBoundary(behind);
        const bool isHit = isWhole && !isFollowedByMark(text, hit.end);
        if (isHit) found.push_back(hit);
        from = isHit ? behind : *at + 1;
    }
}

}  // namespace marquell::window
