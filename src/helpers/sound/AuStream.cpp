// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>

#include "helpers/common/Numbers.h"
#include "helpers/sound/SoundStreams.h"

namespace marquell::helpers {
namespace {

struct Encoding {
    std::uint64_t number;
    std::string_view codec;
    std::uint64_t bits;  ///< that a sample takes
};

constexpr std::array encodings = {
    Encoding{1, muLaw, 8},          Encoding{2, linearPcm, 8},      Encoding{3, linearPcm, 16},
    Encoding{4, linearPcm, 24},     Encoding{5, linearPcm, 32},     Encoding{6, floatingPcm, 32},
    Encoding{7, floatingPcm, 64},   Encoding{23, "G.721 ADPCM", 4}, Encoding{24, "G.722", 4},
    Encoding{25, "G.723 ADPCM", 3}, Encoding{26, "G.723 ADPCM", 5}, Encoding{27, aLaw, 8},
};

}  // namespace

std::optional<SoundStream> readAuStream(Input& input) {
    const std::string header = input.bytesAt(0, 24);
    const std::uint64_t begin = bigEndian(header, 4, 4);
    const std::uint64_t stated = bigEndian(header, 8, 4);
    const auto channels = static_cast<double>(bigEndian(header, 20, 4));
    SoundStream stream;
    SoundNumbers numbers;
    const std::uint64_t available = input.size() - std::min(begin, input.size());
    // An unknown length is written as the greatest one.
    numbers.bytes = std::min(stated, available);
    numbers.sampleRate = static_cast<double>(bigEndian(header, 16, 4));
    for (const Encoding& known : encodings) {
        if (known.number != bigEndian(header, 12, 4)) continue;
        stream.codec = known.codec;
        numbers.bitsPerFrame = static_cast<double>(known.bits) * channels;
        numbers.frames = static_cast<double>(numbers.bytes) * 8 / numbers.bitsPerFrame;
        if (isUncompressed(known.codec)) numbers.bitsPerSample = known.bits;
    }
    setNumbers(stream, numbers);
    return stream;
}

}  // namespace marquell::helpers
