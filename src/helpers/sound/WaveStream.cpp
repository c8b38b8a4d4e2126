// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include "helpers/common/Numbers.h"
#include "helpers/sound/SoundStreams.h"

namespace marquell::helpers {
namespace {

struct FormatName {
    std::uint64_t tag;
    std::string_view name;
};

constexpr std::array formatNames = {
    FormatName{0x0001, linearPcm},
    FormatName{0x0002, "MS ADPCM"},
    FormatName{0x0003, floatingPcm},
    FormatName{0x0006, aLaw},
    FormatName{0x0007, muLaw},
    FormatName{0x0011, "IMA ADPCM"},
    FormatName{0x0022, "TrueSpeech"},
    FormatName{0x0031, "GSM 6.10"},
    FormatName{0x0040, "G.721 ADPCM"},
    FormatName{0x0045, "G.726 ADPCM"},
    FormatName{0x0050, "MP2"},
    FormatName{0x0055, "MP3"},
    FormatName{0x0064, "G.726 ADPCM"},
    FormatName{0x0065, "G.722"},
    FormatName{0x00FF, "AAC"},
    FormatName{0x0160, "Windows Media Audio 1"},
    FormatName{0x0161, "Windows Media Audio 2"},
    FormatName{0x0162, "Windows Media Audio Professional"},
    FormatName{0x0163, "Windows Media Audio Lossless"},
    FormatName{0x0270, "ATRAC3"},
    FormatName{0x1600, "AAC"},
    FormatName{0x1610, "AAC"},
    FormatName{0x2000, "AC-3"},
    FormatName{0x2001, "DTS"},
    FormatName{0xF1AC, "FLAC"},
};

std::string_view formatName(std::uint64_t tag) {
    for (const FormatName& known : formatNames) {
        if (known.tag == tag) return known.name;
    }
    return {};
}

/// What a fmt chunk says.
struct Format {
    std::uint64_t tag = 0;
    std::uint64_t channels = 0;
    std::uint64_t sampleRate = 0;
    std::uint64_t bytesPerSecond = 0;
    std::uint64_t blockLength = 0;
    std::uint64_t bitsPerSample = 0;
};

Format formatOf(ChunkForm form, std::string_view bytes) {
    const auto at = [&](std::size_t offset, std::size_t length) {
        return chunkNumber(form, bytes, offset, length);
    };
    Format format{at(0, 2), at(2, 2), at(4, 4), at(8, 4), at(12, 2), at(14, 2)};
    constexpr std::uint64_t extensible = 0xFFFE;
    if (format.tag == extensible) {
        const std::uint64_t validBits = at(18, 2);
        if (validBits > 0 && validBits < format.bitsPerSample) format.bitsPerSample = validBits;
        format.tag = at(24, 2);
    }
    return format;
}

}  // namespace

std::optional<SoundStream> readWaveStream(Input& input, ChunkForm form) {
    std::optional<Format> format;
    SoundNumbers numbers;
    std::uint64_t statedFrames = 0;
    ChunkWalk walk(input, form, 12, input.size());
    bool hasData = false;
    for (Chunk chunk; !(format && hasData) && walk.next(chunk);) {
        if (chunk.type == fourCharacters("fmt ")) {
            format = formatOf(form, input.bytesAt(chunk.begin, 40));
        } else if (chunk.type == fourCharacters("fact")) {
            statedFrames = chunkNumber(form, input.bytesAt(chunk.begin, 4), 0, 4);
        } else if (chunk.type == fourCharacters("data")) {
            hasData = true;
            numbers.bytes = chunk.length();
        }
    }
    if (!format) return std::nullopt;
    SoundStream stream;
    stream.codec = formatName(format->tag);
    numbers.sampleRate = static_cast<double>(format->sampleRate);
    const auto bytes = static_cast<double>(numbers.bytes);
    if (isUncompressed(stream.codec)) {
        numbers.bitsPerFrame = static_cast<double>(format->blockLength * 8);
        numbers.frames = bytes / static_cast<double>(format->blockLength);
        numbers.bitsPerSample = format->bitsPerSample;
    } else {
        numbers.statedBitRate = static_cast<double>(format->bytesPerSecond * 8);
        // Streams begin before they know how many frames there will be.
        const bool isStated = statedFrames > 0 && statedFrames < 0xFFFFFFFF;
        numbers.frames =
            isStated ? static_cast<double>(statedFrames)
                     : bytes / static_cast<double>(format->bytesPerSecond) * numbers.sampleRate;
    }
    setNumbers(stream, numbers);
    return stream;
}

}  // namespace marquell::helpers
