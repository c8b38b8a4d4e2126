// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/PropertyDictionary.h"

namespace marquell::platform {

/// A tag of a sound or video file, with its value in the forms that it has.
struct AudioVisualItem {
    std::optional<std::string> commonKey;  ///< "title", "albumName", ...; absent if it has none
    /// As the file has it; an ID3 frame of version 2.2 is three letters and a NUL.
    std::optional<std::string> key;
    std::optional<std::string> stringValue;
    std::optional<Date> dateValue;
    std::optional<double> numberValue;
};

/// What is known of a sound or video file.
struct AudioVisualAsset {
    std::vector<AudioVisualItem> commonMetadata;
    std::vector<AudioVisualItem> id3Metadata;  ///< in the order of the file
    std::optional<std::string> lyrics;
};

/// What a reader's properties (by AudioVisualPropertyKey) say; what is none of them is left out.
AudioVisualAsset audioVisualAsset(const PropertyDictionary& properties);

}  // namespace marquell::platform
