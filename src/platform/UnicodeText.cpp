// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UnicodeText.h"

#include <unicode/brkiter.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>

#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

void appendAsciiKey(std::string& key, std::string_view text) {
    const std::size_t start = key.size();
    key.append(text);
    std::transform(key.begin() + static_cast<std::ptrdiff_t>(start), key.end(),
                   key.begin() + static_cast<std::ptrdiff_t>(start),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
}

/// The iterator is costly to make and not shareable, so each thread keeps one. Null when the
/// library's data is missing.
icu::BreakIterator* characterIterator() {
    thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::BreakIterator> made(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }();
    return iterator.get();
}

/// Text whose code points are all below U+0300 has no clusters but CR LF.
bool hasOnlySimpleCharacters(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0xCC; });
}

std::size_t simpleCharacterCount(std::string_view text) {
    std::size_t count = 0;
    char previous = 0;
    for (const char c : text) {
        const bool continuation = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
        const bool joinsReturn = previous == '\r' && c == '\n';
        if (!continuation && !joinsReturn) ++count;
        previous = c;
    }
    return count;
}

}  // namespace

void appendCaseInsensitiveKey(std::string& key, std::string_view text) {
    if (isAscii(text)) {
        appendAsciiKey(key, text);
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposer = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status)) {
        appendAsciiKey(key, text);
        return;
    }
    const icu::StringPiece piece(text.data(), static_cast<std::int32_t>(text.size()));
    icu::UnicodeString folded =
        decomposer->normalize(icu::UnicodeString::fromUTF8(piece), status).foldCase();
    std::string bytes;
    decomposer->normalize(folded, status).toUTF8String(bytes);
    key.append(bytes);
}

void forEachCharacter(std::string_view text, const std::function<void(std::string_view)>& visit) {
    icu::BreakIterator* iterator = characterIterator();
    UErrorCode status = U_ZERO_ERROR;
    UText opened = UTEXT_INITIALIZER;
    utext_openUTF8(&opened, text.data(), static_cast<std::int64_t>(text.size()), &status);
    if (iterator == nullptr || U_FAILURE(status)) return visit(text);  // no text may get lost
    iterator->setText(&opened, status);
    std::int32_t start = iterator->first();
    for (std::int32_t end = iterator->next(); end != icu::BreakIterator::DONE;
         start = end, end = iterator->next()) {
        visit(text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
    }
    utext_close(&opened);
}

std::size_t characterCount(std::string_view text) {
    if (hasOnlySimpleCharacters(text)) return simpleCharacterCount(text);
    std::size_t count = 0;
    forEachCharacter(text, [&count](std::string_view) { ++count; });
    return count;
}

bool isNumberCharacter(std::string_view character) {
    const auto codePoint = static_cast<UChar32>(firstCodePoint(character));
    return u_getIntPropertyValue(codePoint, UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

}  // namespace marquell::platform
