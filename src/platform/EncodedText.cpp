// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EncodedText.h"

#include <cerrno>
#include <functional>

#include "platform/TextConverter.h"
#include "platform/TextPieces.h"
#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

/// Calls `visit` with the offset and text of each piece, until it returns anything but 0, which is
/// then the answer.
int forEachPiece(std::string_view text,
                 const std::function<int(std::size_t offset, std::string_view piece)>& visit) {
    int answer = 0;
    for (std::size_t start = 0; start < text.size() && answer == 0;) {
        const std::size_t end = pieceEnd(text, start, TextConverter::maximumPiece);
        answer = visit(start, text.substr(start, end - start));
        start = end;
    }
    return answer;
}

/// Where a character that composing left over or made stands or starts.
std::size_t placeOf(char32_t character, std::string_view composition) {
    for (std::size_t at = 0; at < composition.size();) {
        const std::string_view rest = composition.substr(at);
        if (firstCodePoint(rest) == character) return at;
        at += utf8SequenceLength(rest);
    }
    return 0;
}

/// The first character lacking in a piece: what composes is tried on its own, one after another.
std::optional<UnencodableCharacter> firstLacking(TextConverter& converter, std::string_view piece) {
    for (std::size_t at = 0; at < piece.size();) {
        const std::string_view rest = piece.substr(at);
        const std::string_view composition = rest.substr(0, compositionLength(rest));
        if (const auto character = converter.unencodableIn(composition)) {
            return UnencodableCharacter{at + placeOf(*character, composition), *character};
        }
        at += composition.size();
    }
    return std::nullopt;
}

}  // namespace

std::optional<UnencodableCharacter> EncodedText::unencodable() const {
    if (!traitsOf(encoding_).isLegacy) return std::nullopt;
    const ByteSink nowhere = [](std::string_view) { return 0; };
    TextConverter converter(encoding_, nowhere);
    std::optional<UnencodableCharacter> lacking;
    forEachPiece(text_, [&](std::size_t offset, std::string_view piece) {
        const int error = converter.convert(piece);
        if (error == EILSEQ) lacking = firstLacking(converter, piece);
        if (lacking) lacking->offset += offset;
        return error;
    });
    return lacking;
}

int EncodedText::writeTo(const ByteSink& sink) const {
    if (encoding_ == TextEncoding::utf8) return sink(text_);
    const std::string_view prefix = traitsOf(encoding_).prefix;
    if (const int error = prefix.empty() ? 0 : sink(prefix); error != 0) return error;
    TextConverter converter(encoding_, sink);
    const int error = forEachPiece(
        text_, [&](std::size_t, std::string_view piece) { return converter.convert(piece); });
    return error != 0 ? error : converter.finish();
}

}  // namespace marquell::platform
