// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextConverter.h"

#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

constexpr char16_t noCharacter = 0xFFFF;

constexpr std::size_t bufferSize = std::size_t{64} * 1024;

/// Where the library's tables are not followed.
struct Correction {
    std::optional<TextEncoding> encoding;  ///< all Japanese ones when absent
    char16_t first = 0;
    char16_t last = 0;
    char16_t written = 0;  ///< what the library gets instead
};

constexpr std::array<Correction, 9> corrections = {{
    // These are the same characters as others in the Japanese sets, but the library knows only the
    // others when it may not fall back, which it would also do to make a yen sign a backslash.
    {{}, 0x2014, 0x2014, 0x2015},
    {{}, 0x2016, 0x2016, 0x2225},
    {{}, 0x2212, 0x2212, 0xFF0D},
    {{}, 0x301C, 0x301C, 0xFF5E},
    // A private character, which it takes for U+2116.
    {{}, 0xF86F, 0xF86F, noCharacter},
    // Readers take these bytes for no character, or for the first of several.
    {TextEncoding::japaneseEUC, 0x0080, 0x009F, noCharacter},
    // Its table exchanges these controls; this leads each to its own byte again.
    {TextEncoding::shiftJIS, 0x001A, 0x001A, 0x001C},
    {TextEncoding::shiftJIS, 0x001C, 0x001C, 0x007F},
    {TextEncoding::shiftJIS, 0x007F, 0x007F, 0x001A},
}};

/// ISO-2022-JP switches its state with these.
constexpr std::string_view shifts = "\x0E\x0F\x1B";

void correct(std::span<char16_t> units, TextEncoding encoding) {
    for (char16_t& unit : units) {
        if (unit >= 0x20 && unit < 0x7F) continue;  // most of them
        const auto row = std::find_if(corrections.begin(), corrections.end(), [&](const auto& r) {
            return unit >= r.first && unit <= r.last && r.encoding.value_or(encoding) == encoding;
        });
        if (row != corrections.end()) unit = row->written;
    }
}

/// Of one unit or a surrogate pair.
char32_t codePointOf(std::span<const char16_t> units) {
    if (units.size() == 1) return units[0];
    return 0x10000 + ((units[0] & 0x3FFU) << 10) + (units[1] & 0x3FFU);
}

/// Unlike the library's own way to stop, this one doesn't skip what is invisible: joiners and
/// direction marks that the encoding lacks are a loss as well.
void stopAtAll(const void*, UConverterFromUnicodeArgs*, const UChar*, std::int32_t, UChar32,
               UConverterCallbackReason, UErrorCode*) {}

UConverter* openConverter(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name, &status);
    if (U_FAILURE(status)) return nullptr;
    ucnv_setFallback(converter, false);
    ucnv_setFromUCallBack(converter, &stopAtAll, nullptr, nullptr, nullptr, &status);
    return converter;
}

int errorOf(UErrorCode status) {
    switch (status) {
        case U_INVALID_CHAR_FOUND:
        case U_ILLEGAL_CHAR_FOUND:
            return EILSEQ;
        case U_MEMORY_ALLOCATION_ERROR:
            return ENOMEM;
        default:
            return U_FAILURE(status) ? ENOTSUP : 0;
    }
}

}  // namespace

TextConverter::TextConverter(TextEncoding encoding, const ByteSink& sink)
    : traits_(traitsOf(encoding)),
      converter_(openConverter(traits_.converter), &ucnv_close),
      sink_(sink),
      encoded_(bufferSize, '\0') {
    if (traits_.isLegacy) composer_.emplace(converter_.get());
}

std::span<char16_t> TextConverter::unitsOf(std::string_view piece, int& error) {
    decoded_.resize(std::max(decoded_.size(), piece.size()));
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(decoded_.data(), static_cast<std::int32_t>(decoded_.size()), &length,
                  piece.data(), static_cast<std::int32_t>(piece.size()), &status);
    std::span<char16_t> units;
    if (U_SUCCESS(status)) units = std::span(decoded_).first(static_cast<std::size_t>(length));
    if (composer_) units = composer_->compose(units, status);
    error = errorOf(status);
    return units;
}

int TextConverter::handOver() {
    const std::string_view bytes = std::string_view(encoded_).substr(0, filled_);
    filled_ = 0;
    return bytes.empty() ? 0 : sink_(bytes);
}

int TextConverter::put(std::string_view bytes) {
    if (encoded_.size() - filled_ < bytes.size()) {
        if (const int error = handOver(); error != 0) return error;
    }
    bytes.copy(encoded_.data() + filled_, bytes.size());
    filled_ += bytes.size();
    return 0;
}

int TextConverter::encode(std::span<char16_t> units, bool isEnd) {
    if (traits_.isJapanese) correct(units, traits_.encoding);
    const UChar* source = units.data();
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        char* target = encoded_.data() + filled_;
        ucnv_fromUnicode(converter_.get(), &target, encoded_.data() + encoded_.size(), &source,
                         units.data() + units.size(), nullptr, static_cast<UBool>(isEnd ? 1 : 0),
                         &status);
        filled_ = static_cast<std::size_t>(target - encoded_.data());
        if (status != U_BUFFER_OVERFLOW_ERROR) return errorOf(status);
        if (const int error = handOver(); error != 0) return error;
    }
}

bool TextConverter::isTransparent(std::string_view piece) const {
    if (!traits_.isLegacy || !isAscii(piece)) return false;
    return traits_.encoding != TextEncoding::iso2022JP ||
           std::all_of(shifts.begin(), shifts.end(),
                       [piece](char shift) { return piece.find(shift) == std::string_view::npos; });
}

int TextConverter::convert(std::string_view piece) {
    if (converter_ == nullptr) return ENOTSUP;
    if (isTransparent(piece)) {
        const int error = encode({}, true);
        return error != 0 ? error : put(piece);
    }
    int error = 0;
    const auto units = unitsOf(piece, error);
    return error != 0 ? error : encode(units, false);
}

int TextConverter::finish() {
    if (converter_ == nullptr) return ENOTSUP;
    const int error = encode({}, true);
    return error != 0 ? error : handOver();
}

std::optional<char32_t> TextConverter::unencodableIn(std::string_view piece) {
    int error = 0;
    std::span<char16_t> rest = unitsOf(piece, error);
    while (!rest.empty()) {
        const std::span<char16_t> units = rest.first(U16_IS_LEAD(rest[0]) ? 2 : 1);
        const char32_t character = codePointOf(units);
        ucnv_resetFromUnicode(converter_.get());
        if (encode(units, true) == EILSEQ) return character;
        rest = rest.subspan(units.size());
    }
    return std::nullopt;
}

}  // namespace marquell::platform
