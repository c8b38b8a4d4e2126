// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

#include "helpers/image/ImageHeader.h"

namespace marquell::helpers {

/// What one TIFF directory says of its image, whoever has read it.
struct TiffDirectory {
    static constexpr double inches = 2;
    static constexpr double centimetres = 3;

    double subfileType = 0;
    double width = 0;
    double height = 0;
    double depth = 0;
    std::optional<double> photometric;  ///< the number of its way to tell colours
    std::optional<double> resolutionX;
    std::optional<double> resolutionY;
    double resolutionUnit = inches;

    /// Takes the first number of a field, if the tag is one of the above.
    void take(std::uint64_t tag, const std::optional<double>& number);

    /// Not a smaller version of another image or a part of it.
    bool isMainImage() const { return static_cast<std::int64_t>(subfileType) % 2 == 0; }
    double area() const { return width * height; }

    /// These set what makes sense.
    void describeImage(ImageHeader& header) const;
    void describeResolution(ImageHeader& header) const;
};

/// A whole number that fits; absent for 0 and nonsense.
std::optional<std::uint32_t> wholeNumber(double number);

}  // namespace marquell::helpers
