// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/ComparedText.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "platform/UnicodeText.h"
#include "platform/Utf8.h"

namespace marquell::window {
namespace {

/// Of one code point, or of a byte that belongs to none. The key of a text is those of its code
/// points in a row, unless it has several marks on a letter in an unusual order.
const std::string& keyOf(std::string_view codePoint) {
    thread_local std::unordered_map<char32_t, std::string> keys;
    if (platform::utf8SequenceLength(codePoint) == 0) codePoint = "\xEF\xBF\xBD";
    std::string& key = keys[platform::firstCodePoint(codePoint)];
    if (key.empty()) platform::appendCaseInsensitiveKey(key, codePoint);
    return key;
}

}  // namespace

ComparedText::ComparedText(std::string_view piece, bool matchCase) : bytes_(piece) {
    if (matchCase) return;
    key_.reserve(piece.size());
    const std::size_t ascii = platform::asciiLength(piece);
    platform::appendCaseInsensitiveKey(key_, piece.substr(0, ascii));
    if (ascii < piece.size()) addFrom(ascii, piece);
    bytes_ = key_;
}

void ComparedText::addFrom(std::size_t start, std::string_view piece) {
    addSources(0, start);
    for (std::size_t at = start; at < piece.size();) {
        const std::string_view rest = piece.substr(at);
        std::size_t length = platform::asciiLength(rest);
        if (length > 0) {
            platform::appendCaseInsensitiveKey(key_, rest.substr(0, length));
            addSources(at, length);
        } else {
            length = std::max<std::size_t>(platform::utf8SequenceLength(rest), 1);
            key_ += keyOf(rest.substr(0, length));
            sources_.resize(key_.size(), static_cast<std::uint32_t>(at));
        }
        at += length;
    }
    sources_.push_back(static_cast<std::uint32_t>(piece.size()));
}

void ComparedText::addSources(std::size_t start, std::size_t length) {
    const std::size_t count = sources_.size();
    sources_.resize(count + length);
    std::iota(sources_.begin() + static_cast<std::ptrdiff_t>(count), sources_.end(),
              static_cast<std::uint32_t>(start));
}

}  // namespace marquell::window
