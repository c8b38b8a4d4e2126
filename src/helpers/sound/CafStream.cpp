// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <bit>

#include "helpers/common/Numbers.h"
#include "helpers/sound/SoundStreams.h"

namespace marquell::helpers {
namespace {

/// What a desc chunk says.
struct Description {
    double sampleRate = 0;
    std::string code;
    std::uint64_t flags = 0;
    std::uint64_t bytesPerPacket = 0;
    std::uint64_t framesPerPacket = 0;
    std::uint64_t bitsPerChannel = 0;
};

Description descriptionOf(std::string_view bytes) {
    return {std::bit_cast<double>(bigEndian(bytes, 0, 8)),
            std::string(bytes.substr(8, 4)),
            bigEndian(bytes, 12, 4),
            bigEndian(bytes, 16, 4),
            bigEndian(bytes, 20, 4),
            bigEndian(bytes, 28, 4)};
}

/// From the settings of the decoder, before which older writers have two boxes of 12 bytes.
std::uint64_t losslessBitsOf(std::string_view cookie) {
    if (cookie.size() > 24 && cookie.substr(4, 4) == "frma") cookie.remove_prefix(24);
    const std::uint64_t bits = bigEndian(cookie, 5, 1);
    return bits <= 32 ? bits : 0;
}

/// Apple Lossless says by its flags what its samples were, or in its cookie.
std::uint64_t bitsPerSample(const Description& description, std::string_view cookie) {
    constexpr std::array<std::uint64_t, 5> losslessBits = {0, 16, 20, 24, 32};
    if (description.code != "alac") return description.bitsPerChannel;
    if (description.flags == 0) return losslessBitsOf(cookie);
    return description.flags < losslessBits.size() ? losslessBits[description.flags] : 0;
}

std::string codecOf(const Description& description) {
    constexpr std::uint64_t floatFlag = 1;
    const bool isFloat = description.code == "lpcm" && (description.flags & floatFlag) != 0;
    return isFloat ? std::string(floatingPcm) : codecOfCharacters(description.code);
}

}  // namespace

std::optional<SoundStream> readCafStream(Input& input) {
    constexpr std::size_t descriptionLength = 32;
    constexpr std::uint64_t editCountLength = 4;
    std::optional<Description> description;
    std::string cookie;
    SoundNumbers numbers;
    ChunkWalk walk(input, ChunkForm::wide, 8, input.size());
    for (Chunk chunk; walk.next(chunk);) {
        if (chunk.type == fourCharacters("desc") && chunk.length() >= descriptionLength) {
            description = descriptionOf(input.bytesAt(chunk.begin, descriptionLength));
        } else if (chunk.type == fourCharacters("kuki")) {
            cookie = input.bytesAt(chunk.begin, std::min<std::size_t>(chunk.length(), 64));
        } else if (chunk.type == fourCharacters("data")) {
            numbers.bytes = chunk.length() - std::min(editCountLength, chunk.length());
        } else if (chunk.type == fourCharacters("pakt")) {
            const auto frames =
                static_cast<std::int64_t>(bigEndian(input.bytesAt(chunk.begin, 16), 8, 8));
            numbers.frames = static_cast<double>(std::max<std::int64_t>(frames, 0));
        }
    }
    if (!description) return std::nullopt;
    SoundStream stream;
    stream.codec = codecOf(*description);
    numbers.sampleRate = description->sampleRate;
    numbers.bitsPerSample = bitsPerSample(*description, cookie);
    if (isUncompressed(stream.codec)) {
        numbers.bitsPerFrame = static_cast<double>(description->bytesPerPacket * 8);
    }
    if (description->bytesPerPacket > 0 && !(numbers.frames > 0)) {
        numbers.frames = static_cast<double>(numbers.bytes) /
                         static_cast<double>(description->bytesPerPacket) *
                         static_cast<double>(description->framesPerPacket);
    }
    setNumbers(stream, numbers);
    return stream;
}

}  // namespace marquell::helpers
