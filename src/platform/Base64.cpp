// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Base64.h"

#include <algorithm>
#include <cstdint>

namespace marquell::platform {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char padding = '=';

}  // namespace

std::string base64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    while (!bytes.empty()) {
        const std::size_t count = std::min<std::size_t>(bytes.size(), 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            bits = bits << 8 | (i < count ? static_cast<unsigned char>(bytes[i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text.push_back(i <= count ? alphabet[bits >> (18 - 6 * i) & 0x3F] : padding);
        }
        bytes.remove_prefix(count);
    }
    return text;
}

std::optional<std::string> bytesOfBase64(std::string_view text) {
    std::string bytes;
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (const char character : text.substr(0, text.find(padding))) {
        const std::size_t value = alphabet.find(character);
        if (value == std::string_view::npos) return std::nullopt;
        bits = (bits << 6 | static_cast<std::uint32_t>(value)) & 0xFFFFFF;
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes.push_back(static_cast<char>(bits >> count & 0xFF));
    }
    if (base64(bytes) != text) return std::nullopt;
    return bytes;
}

}  // namespace marquell::platform
