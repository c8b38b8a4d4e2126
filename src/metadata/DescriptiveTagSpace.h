// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace marquell::metadata {

/// The categories of the column menu, in menu order. The raw numbers are stored in the settings.
enum class DescriptiveTagSpace : int {
    Basic = 0,
    Size = 1,
    Spotlight = 2,
    BasicImage = 3,
    EXIF = 4,
    GPS = 5,
    IPTCCommonUsage = 6,
    IPTCContactInfo = 7,
    IPTCIISLegacy = 8,
    AudioVisualCommon = 9,
    ID3 = 10,
    Hashes = 11,
};

inline constexpr std::array allDescriptiveTagSpaces{
    DescriptiveTagSpace::Basic,
    DescriptiveTagSpace::Size,
    DescriptiveTagSpace::Spotlight,
    DescriptiveTagSpace::BasicImage,
    DescriptiveTagSpace::EXIF,
    DescriptiveTagSpace::GPS,
    DescriptiveTagSpace::IPTCCommonUsage,
    DescriptiveTagSpace::IPTCContactInfo,
    DescriptiveTagSpace::IPTCIISLegacy,
    DescriptiveTagSpace::AudioVisualCommon,
    DescriptiveTagSpace::ID3,
    DescriptiveTagSpace::Hashes,
};

/// The case's name as written above; empty for a raw value without a case.
constexpr std::string_view caseName(DescriptiveTagSpace space) {
    switch (space) {
        case DescriptiveTagSpace::Basic:
            return "Basic";
        case DescriptiveTagSpace::Size:
            return "Size";
        case DescriptiveTagSpace::Spotlight:
            return "Spotlight";
        case DescriptiveTagSpace::BasicImage:
            return "BasicImage";
        case DescriptiveTagSpace::EXIF:
            return "EXIF";
        case DescriptiveTagSpace::GPS:
            return "GPS";
        case DescriptiveTagSpace::IPTCCommonUsage:
            return "IPTCCommonUsage";
        case DescriptiveTagSpace::IPTCContactInfo:
            return "IPTCContactInfo";
        case DescriptiveTagSpace::IPTCIISLegacy:
            return "IPTCIISLegacy";
        case DescriptiveTagSpace::AudioVisualCommon:
            return "AudioVisualCommon";
        case DescriptiveTagSpace::ID3:
            return "ID3";
        case DescriptiveTagSpace::Hashes:
            return "Hashes";
    }
    return {};
}

}  // namespace marquell::metadata
