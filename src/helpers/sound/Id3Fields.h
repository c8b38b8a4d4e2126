// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "helpers/common/DecodedText.h"

namespace marquell::helpers {

/// Takes the fields of an ID3 frame off the front of its content, which must live as long. What is
/// missing at the end is empty or 0.
class Id3Fields {
public:
    explicit Id3Fields(std::string_view content) : rest_(content) {}

    std::size_t left() const { return rest_.size(); }

    /// Up to `length` bytes.
    std::string_view bytes(std::size_t length);
    std::string_view rest() { return bytes(rest_.size()); }
    /// Big-endian, of at most 8 bytes.
    std::uint64_t number(std::size_t length);

    /// The byte that says how the texts behind it are encoded. Before that they are Latin 1, as
    /// addresses and owners always are.
    void takeEncoding();
    /// A text of the declared encoding, with what ends it.
    std::string text() { return decoded(textBytes()); }
    /// All texts that are left, each without line breaks at its end; at most maximumSteps. Some may
    /// be empty.
    std::vector<std::string> texts();
    std::string latin();

    /// The bytes of a text, as far as what ends it or the end, for decoded.
    std::string_view textBytes();
    std::string decoded(std::string_view bytes);

private:
    std::string_view takeText(std::size_t unit);

    std::string_view rest_;
    bool isWide_ = false;
    /// Of wide texts: declared, or that of the last byte order mark.
    std::optional<Charset> byteOrder_;
};

}  // namespace marquell::helpers
