// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "helpers/common/Numbers.h"
#include "helpers/sound/SoundStreams.h"

namespace marquell::helpers {
namespace {

/// Where the metadata blocks end.
std::uint64_t soundBegin(Input& input, std::uint64_t position) {
    constexpr std::uint64_t lastFlag = 0x80;
    for (std::size_t steps = 0; steps < maximumSteps; ++steps) {
        const std::string header = input.bytesAt(position, 4);
        if (header.size() < 4) break;
        position += 4 + bigEndian(header, 1, 3);
        if ((bigEndian(header, 0, 1) & lastFlag) != 0) break;
    }
    return std::min(position, input.size());
}

}  // namespace

std::optional<SoundStream> readFlacStream(Input& input, std::uint64_t begin) {
    // The first block, of the kind 0, describes the stream.
    const std::string block = input.bytesAt(begin + 4, 38);
    if (block.size() < 38 || (bigEndian(block, 0, 1) & 0x7FU) != 0) return std::nullopt;
    // Sample rate in 20 bits, channels in 3, bits in 5, samples of a channel in 36.
    const std::uint64_t packed = bigEndian(block, 14, 8);
    SoundNumbers numbers;
    numbers.sampleRate = static_cast<double>(packed >> 44U);
    numbers.bitsPerSample = (packed >> 36U & 0x1FU) + 1;
    numbers.frames = static_cast<double>(packed & 0xFFFFFFFFFU);
    numbers.bytes = input.size() - soundBegin(input, begin + 4);
    SoundStream stream;
    stream.codec = "FLAC";
    setNumbers(stream, numbers);
    // None stated, which is not the same as none there.
    if (numbers.frames == 0) stream.seconds.reset();
    return stream;
}

}  // namespace marquell::helpers
