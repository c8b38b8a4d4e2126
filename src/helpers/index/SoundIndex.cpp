// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <string>
#include <vector>

#include "helpers/common/IndexProperties.h"
#include "helpers/index/IndexReaders.h"
#include "helpers/sound/SoundStream.h"
#include "helpers/sound/SoundTagIndex.h"

namespace marquell::helpers {

std::optional<platform::PropertyDictionary> soundIndex(Input& input, std::string_view extension) {
    using Attribute = platform::IndexAttribute;
    const std::optional<SoundStream> stream = readSoundStream(input);
    if (!stream) return std::nullopt;
    platform::PropertyDictionary index;
    addNumber(index, Attribute::kMDItemDurationSeconds, stream->seconds);
    addTexts(index, Attribute::kMDItemCodecs, {stream->codec});
    addTexts(index, Attribute::kMDItemMediaTypes, {"Sound"});
    if (stream->bitRate)
        addNumber(index, Attribute::kMDItemAudioBitRate, std::round(*stream->bitRate));
    if (stream->seconds && *stream->seconds > 0) {
        addNumber(index, Attribute::kMDItemTotalBitRate,
                  std::round(static_cast<double>(input.size()) * 8 / *stream->seconds));
    }
    if (stream->bitsPerSample) {
        addNumber(index, Attribute::kMDItemBitsPerSample, *stream->bitsPerSample);
    }
    addSoundTagIndex(index, readSoundTags(input, extension));
    return index;
}

}  // namespace marquell::helpers
