// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "platform/DefaultsValue.h"

namespace marquell::variables {

/// A colour in sRGB; each component from 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const Color&, const Color&) = default;
};

/// The stored form: the four components in their order, each in the eight bytes of a little-endian
/// IEEE 754 double.
platform::DefaultsData colorData(const Color& color);

/// Absent if the bytes are no colour.
std::optional<Color> colorFrom(const platform::DefaultsData& data);

}  // namespace marquell::variables
