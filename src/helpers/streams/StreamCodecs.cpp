// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/StreamCodecs.h"

#include <algorithm>
#include <array>
#include <string_view>

extern "C" {
#include <libavcodec/codec_desc.h>
}

namespace marquell::helpers {
namespace {

struct Name {
    AVCodecID codec;
    const char* name;
};

/// Where the library's description is not what people say, or is longer.
constexpr std::array names = {
    Name{AV_CODEC_ID_AAC, "AAC"},
    Name{AV_CODEC_ID_AAC_LATM, "AAC"},
    Name{AV_CODEC_ID_AC3, "AC-3"},
    Name{AV_CODEC_ID_ALAC, "Apple Lossless"},
    Name{AV_CODEC_ID_AV1, "AV1"},
    Name{AV_CODEC_ID_DTS, "DTS"},
    Name{AV_CODEC_ID_EAC3, "E-AC-3"},
    Name{AV_CODEC_ID_FFV1, "FFV1"},
    Name{AV_CODEC_ID_FLV1, "Sorenson H.263"},
    Name{AV_CODEC_ID_H264, "H.264"},
    Name{AV_CODEC_ID_HEVC, "HEVC"},
    Name{AV_CODEC_ID_MPEG4, "MPEG-4 Video"},
    Name{AV_CODEC_ID_MPEG1VIDEO, "MPEG-1 Video"},
    Name{AV_CODEC_ID_MPEG2VIDEO, "MPEG-2 Video"},
    Name{AV_CODEC_ID_PCM_ALAW, "A-law"},
    Name{AV_CODEC_ID_PCM_MULAW, "\u00B5-law"},
    Name{AV_CODEC_ID_VP8, "VP8"},
    Name{AV_CODEC_ID_VP9, "VP9"},
};

constexpr std::array losslessCodecs = {
    AV_CODEC_ID_FLAC,    AV_CODEC_ID_ALAC,   AV_CODEC_ID_APE,         AV_CODEC_ID_WAVPACK,
    AV_CODEC_ID_TTA,     AV_CODEC_ID_TAK,    AV_CODEC_ID_WMALOSSLESS, AV_CODEC_ID_MLP,
    AV_CODEC_ID_SHORTEN, AV_CODEC_ID_TRUEHD,
};

std::string_view libraryName(AVCodecID codec) {
    const AVCodecDescriptor* const descriptor = avcodec_descriptor_get(codec);
    return descriptor != nullptr ? descriptor->name : "";
}

bool isPcm(AVCodecID codec) { return libraryName(codec).starts_with("pcm_"); }

const char* knownName(AVCodecID codec) {
    const auto* const found = std::find_if(names.begin(), names.end(),
                                           [codec](const Name& row) { return row.codec == codec; });
    return found != names.end() ? found->name : nullptr;
}

/// Up to other names and explanations of the same thing.
std::string shortened(std::string_view description) {
    for (const std::string_view end : {" (", " / "}) {
        description = description.substr(0, description.find(end));
    }
    return std::string(description);
}

}  // namespace

std::string streamCodecName(AVCodecID codec) {
    if (const char* const known = knownName(codec); known != nullptr) return known;
    if (isPcm(codec)) {
        const bool isFloat = libraryName(codec).starts_with("pcm_f");
        return isFloat ? "Linear PCM, floating point" : "Linear PCM";
    }
    const AVCodecDescriptor* const descriptor = avcodec_descriptor_get(codec);
    if (descriptor == nullptr) return {};
    return shortened(descriptor->long_name != nullptr ? descriptor->long_name : descriptor->name);
}

bool isLosslessSound(AVCodecID codec) {
    return isPcm(codec) || std::ranges::find(losslessCodecs, codec) != losslessCodecs.end();
}

}  // namespace marquell::helpers
