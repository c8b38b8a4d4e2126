// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace marquell::metadata {

/// Who finds out a value. The raw numbers are fixed: orders of preference are written in them.
/// Nothing is delivered by `sourceZero` and `sourceThree`.
enum class MetadataSource : int {
    sourceZero = 0,
    imageIO = 1,
    avKit = 2,
    sourceThree = 3,
    spotlight = 4,
    basic = 5,
    hashes = 6,
};

inline constexpr std::array allMetadataSources{
    MetadataSource::sourceZero,  MetadataSource::imageIO,   MetadataSource::avKit,
    MetadataSource::sourceThree, MetadataSource::spotlight, MetadataSource::basic,
    MetadataSource::hashes,
};

/// The case's name as written above; empty for a raw value without a case.
constexpr std::string_view caseName(MetadataSource source) {
    switch (source) {
        case MetadataSource::sourceZero:
            return "sourceZero";
        case MetadataSource::imageIO:
            return "imageIO";
        case MetadataSource::avKit:
            return "avKit";
        case MetadataSource::sourceThree:
            return "sourceThree";
        case MetadataSource::spotlight:
            return "spotlight";
        case MetadataSource::basic:
            return "basic";
        case MetadataSource::hashes:
            return "hashes";
    }
    return {};
}

}  // namespace marquell::metadata
