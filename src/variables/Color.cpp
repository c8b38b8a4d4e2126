// SPDX-License-Identifier: GPL-3.0-or-later
#include "variables/Color.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace marquell::variables {
namespace {

constexpr std::array components = {&Color::red, &Color::green, &Color::blue, &Color::alpha};
constexpr std::size_t componentSize = sizeof(std::uint64_t);

}  // namespace

platform::DefaultsData colorData(const Color& color) {
    platform::DefaultsData data;
    for (const auto component : components) {
        const auto bits = std::bit_cast<std::uint64_t>(color.*component);
        for (std::size_t i = 0; i < componentSize; ++i) {
            data.bytes.push_back(static_cast<char>(bits >> (8 * i)));
        }
    }
    return data;
}

std::optional<Color> colorFrom(const platform::DefaultsData& data) {
    if (data.bytes.size() != components.size() * componentSize) return std::nullopt;
    Color color;
    auto byte = data.bytes.begin();
    for (const auto component : components) {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < componentSize; ++i) {
            bits |= std::uint64_t{static_cast<unsigned char>(*byte++)} << (8 * i);
        }
        color.*component = std::bit_cast<double>(bits);
        if (!(color.*component >= 0 && color.*component <= 1)) return std::nullopt;
    }
    return color;
}

}  // namespace marquell::variables
