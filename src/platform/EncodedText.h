// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/DescriptorIo.h"
#include "platform/TextEncoding.h"

namespace marquell::platform {

struct UnencodableCharacter {
    std::size_t offset;  ///< in bytes, of the code point of the text that it starts with
    char32_t character;  ///< after composing
};

/// The bytes of a text in an encoding. They are made as they are asked for, in small pieces, so
/// that memory does not grow with the text. Legacy encodings get the text composed (NFC), since
/// decomposed names are common and none of these encodings has combining marks; the others get it
/// as it is.
class EncodedText {
public:
    /// `text` is well-formed UTF-8 and must outlive this.
    EncodedText(std::string_view text, TextEncoding encoding) : text_(text), encoding_(encoding) {}

    /// The first character that the encoding lacks.
    std::optional<UnencodableCharacter> unencodable() const;

    /// Returns 0 or errno: the sink's, or EILSEQ if a character is lacking. No byte stands for
    /// another character than its own, but the sink may have got those before it by then.
    int writeTo(const ByteSink& sink) const;

private:
    std::string_view text_;
    TextEncoding encoding_;
};

}  // namespace marquell::platform
