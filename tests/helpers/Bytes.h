// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::helpers {

// What files are put together from. Lengths are in bytes.

inline std::string big(std::uint64_t number, std::size_t length) {
    std::string bytes(length, '\0');
    for (; length-- > 0; number >>= 8) bytes[length] = static_cast<char>(number & 0xFF);
    return bytes;
}

inline std::string little(std::uint64_t number, std::size_t length) {
    const std::string bytes = big(number, length);
    return {bytes.rbegin(), bytes.rend()};
}

inline std::string zeros(std::size_t length) { return std::string(length, '\0'); }

inline std::string box(std::string_view type, const std::string& content = {}) {
    return big(8 + content.size(), 4).append(type) + content;
}

inline std::string fullBox(std::string_view type, const std::string& content,
                           std::uint64_t version = 0) {
    return box(type, big(version, 1) + zeros(3) + content);
}

}  // namespace marquell::helpers
