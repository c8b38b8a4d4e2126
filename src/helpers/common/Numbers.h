// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace marquell::helpers {

/// The number that `length` (at most 8) bytes at the offset make, the most significant first; 0 if
/// not all of them are there.
inline std::uint64_t bigEndian(std::string_view bytes, std::size_t offset, std::size_t length) {
    if (offset > bytes.size() || length > bytes.size() - offset) return 0;
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(offset, length)) {
        number = number << 8 | static_cast<unsigned char>(byte);
    }
    return number;
}

/// The same with the least significant byte first.
inline std::uint64_t littleEndian(std::string_view bytes, std::size_t offset, std::size_t length) {
    if (offset > bytes.size() || length > bytes.size() - offset) return 0;
    std::uint64_t number = 0;
    for (std::size_t i = length; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[offset + i]);
    }
    return number;
}

/// A code of four characters as the number that stands for it in big-endian files.
constexpr std::uint32_t fourCharacters(std::string_view code) {
    std::uint32_t number = 0;
    for (const char character : code) number = number << 8 | static_cast<unsigned char>(character);
    return number;
}

}  // namespace marquell::helpers
