// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/TiffDirectory.h"

#include <algorithm>

#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

std::optional<double> dotsPerInch(const std::optional<double>& resolution, double unit) {
    constexpr double centimetresPerInch = 2.54;
    if (!resolution || !(*resolution > 0)) return std::nullopt;
    if (unit == TiffDirectory::centimetres) return dpiFromMetric(*resolution, centimetresPerInch);
    if (unit == TiffDirectory::inches) return resolution;
    return std::nullopt;
}

std::string_view colorModel(double photometric) {
    switch (static_cast<int>(std::clamp(photometric, -1.0, 65535.0))) {
        case 0:
        case 1:
            return "Gray";
        case 5:
            return "CMYK";
        case 8:
        case 9:
        case 10:
            return "Lab";
        default:
            return "RGB";  // with it palettes, YCbCr and the filter of a sensor
    }
}

}  // namespace

std::optional<std::uint32_t> wholeNumber(double number) {
    if (!(number >= 1) || number > UINT32_MAX) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

void TiffDirectory::take(std::uint64_t tag, const std::optional<double>& number) {
    enum Tag : std::uint64_t {
        newSubfileTypeTag = 0x00FE,
        imageWidthTag = 0x0100,
        imageLengthTag = 0x0101,
        bitsPerSampleTag = 0x0102,
        photometricTag = 0x0106,
        xResolutionTag = 0x011A,
        yResolutionTag = 0x011B,
        resolutionUnitTag = 0x0128,
    };
    switch (tag) {
        case newSubfileTypeTag:
            subfileType = number.value_or(0);
            break;
        case imageWidthTag:
            width = number.value_or(0);
            break;
        case imageLengthTag:
            height = number.value_or(0);
            break;
        case bitsPerSampleTag:
            depth = number.value_or(0);
            break;
        case photometricTag:
            photometric = number;
            break;
        case xResolutionTag:
            resolutionX = number;
            break;
        case yResolutionTag:
            resolutionY = number;
            break;
        case resolutionUnitTag:
            resolutionUnit = number.value_or(inches);
            break;
        default:
            break;
    }
}

void TiffDirectory::describeImage(ImageHeader& header) const {
    header.pixelWidth = wholeNumber(width);
    header.pixelHeight = wholeNumber(height);
    setDepth(header, wholeNumber(depth).value_or(0));
    if (photometric) header.colorModel = colorModel(*photometric);
}

void TiffDirectory::describeResolution(ImageHeader& header) const {
    header.dpiWidth = dotsPerInch(resolutionX, resolutionUnit);
    header.dpiHeight = dotsPerInch(resolutionY, resolutionUnit);
}

}  // namespace marquell::helpers
