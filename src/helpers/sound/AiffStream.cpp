// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cmath>

#include "helpers/common/Numbers.h"
#include "helpers/sound/SoundStreams.h"

namespace marquell::helpers {
namespace {

/// A number of 80 bits as processors of the time had it: sign, exponent of 15 bits and a mantissa
/// with its leading bit.
double extendedNumber(std::string_view bytes, std::size_t offset) {
    constexpr int bias = 16383;
    constexpr int mantissaBits = 63;
    const int exponent = static_cast<int>(bigEndian(bytes, offset, 2) & 0x7FFFU);
    return std::ldexp(static_cast<double>(bigEndian(bytes, offset + 2, 8)),
                      exponent - bias - mantissaBits);
}

/// Codecs that count packets where others count frames.
struct Packets {
    std::string_view code;
    double frames;  ///< in each
};

constexpr std::array packets = {
    Packets{"ima4", 64},  Packets{"MAC3", 6},   Packets{"MAC6", 6},
    Packets{"GSM ", 160}, Packets{"agsm", 160}, Packets{"Qclp", 160},
};

double framesPerPacket(std::string_view code) {
    for (const Packets& known : packets) {
        if (known.code == code) return known.frames;
    }
    return 1;
}

}  // namespace

std::optional<SoundStream> readAiffStream(Input& input) {
    std::string common;
    SoundNumbers numbers;
    ChunkWalk walk(input, ChunkForm::bigEndian, 12, input.size());
    for (Chunk chunk; (common.empty() || numbers.bytes == 0) && walk.next(chunk);) {
        if (chunk.type == fourCharacters("COMM")) {
            common = input.bytesAt(chunk.begin, chunk.length() < 22 ? 18 : 22);
        } else if (chunk.type == fourCharacters("SSND")) {
            numbers.bytes = chunk.length() - std::min<std::uint64_t>(8, chunk.length());
        }
    }
    if (common.size() < 18) return std::nullopt;
    SoundStream stream;
    const std::string code = common.size() < 22 ? "NONE" : common.substr(18);
    stream.codec = codecOfCharacters(code);
    numbers.sampleRate = extendedNumber(common, 8);
    numbers.frames = static_cast<double>(bigEndian(common, 2, 4)) * framesPerPacket(code);
    if (isUncompressed(stream.codec)) {
        numbers.bitsPerSample = bigEndian(common, 6, 2);
        const std::uint64_t bytesPerSample = (numbers.bitsPerSample + 7) / 8;
        numbers.bitsPerFrame = static_cast<double>(bigEndian(common, 0, 2) * bytesPerSample * 8);
    }
    setNumbers(stream, numbers);
    return stream;
}

}  // namespace marquell::helpers
