// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unicode/ucnv.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Composer.h"
#include "platform/DescriptorIo.h"
#include "platform/TextEncoding.h"

namespace marquell::platform {

/// Turns well-formed UTF-8 into an encoding piece by piece, keeping the encoding's state in
/// between. Legacy encodings get each piece composed. Operations return 0 or errno: the sink's,
/// EILSEQ when the encoding lacks a character, ENOTSUP when the library lacks the encoding.
class TextConverter {
public:
    static constexpr std::size_t maximumPiece = std::size_t{16} * 1024;

    /// `sink` must outlive this.
    TextConverter(TextEncoding encoding, const ByteSink& sink);

    /// `piece` has `maximumPiece` bytes at most. The sink may get its bytes later.
    int convert(std::string_view piece);

    /// Hands over the rest, and what the encoding has at the end of a text.
    int finish();

    /// The first character of the composed `piece` that the encoding lacks. Only to be asked when
    /// the bytes no longer matter.
    std::optional<char32_t> unencodableIn(std::string_view piece);

private:
    /// Whether the encoding has each of these characters as its own byte.
    bool isTransparent(std::string_view piece) const;
    /// The piece as the encoding gets it; good until the next one. `error` receives 0 or errno.
    std::span<char16_t> unitsOf(std::string_view piece, int& error);
    /// Corrects the units on the way. `isEnd` takes the encoding back to its first state.
    int encode(std::span<char16_t> units, bool isEnd);
    int put(std::string_view bytes);
    int handOver();

    const EncodingTraits& traits_;
    std::unique_ptr<UConverter, decltype(&ucnv_close)> converter_;
    std::optional<Composer> composer_;  ///< of the legacy ones
    std::u16string decoded_;
    const ByteSink& sink_;
    std::string encoded_;  ///< what the sink has not got yet, `filled_` bytes
    std::size_t filled_ = 0;
};

}  // namespace marquell::platform
