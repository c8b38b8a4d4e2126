// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3Content.h"

#include <zlib.h>

#include <algorithm>
#include <array>

namespace marquell::helpers {
namespace {

constexpr std::size_t maximumLength = std::size_t{1024} * 1024;
/// Far more than texts of any length reach.
constexpr std::size_t maximumRatio = 64;

/// What a frame's flags say, by version.
struct Flags {
    std::uint64_t compressed;
    std::uint64_t encrypted;
    std::uint64_t grouped;
    std::uint64_t unsynchronised;
    std::uint64_t hasLength;
};

constexpr Flags version3 = {0x80, 0x40, 0x20, 0, 0};
constexpr Flags version4 = {0x08, 0x04, 0x40, 0x02, 0x01};

}  // namespace

void undoUnsynchronisation(std::string& bytes) {
    const auto at = [&bytes](std::size_t index) {
        return static_cast<unsigned char>(bytes[index]);
    };
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        if (at(i) == 0xFF && at(i + 1) >= 0xE0) return;
    }
    std::size_t length = 0;
    unsigned char previous = 0;
    for (const char byte : bytes) {
        const bool isEscape = previous == 0xFF && byte == '\0';
        previous = static_cast<unsigned char>(byte);
        if (!isEscape) bytes[length++] = byte;
    }
    bytes.resize(length);
}

std::optional<std::string> Id3Contents::read(const Id3FrameHeader& frame) {
    const Flags& flags = version_ == 4 ? version4 : version3;
    const auto has = [&frame](std::uint64_t flag) { return (frame.flags & flag) != 0; };
    const bool isTooLong = frame.length > std::min(maximumLength, bytesLeft_);
    if (has(flags.encrypted) || isTooLong) return std::nullopt;
    std::string content = input_.bytesAt(frame.begin, static_cast<std::size_t>(frame.length));
    if (content.size() < frame.length) return std::nullopt;
    bytesLeft_ -= content.size();
    if (version_ == 4 && (isUnsynchronised_ || has(flags.unsynchronised))) {
        undoUnsynchronisation(content);
    }
    // In front there are the group and the length of the plain content.
    const std::size_t front =
        (has(flags.compressed) || has(flags.hasLength) ? 4U : 0U) + (has(flags.grouped) ? 1U : 0U);
    if (content.size() < front) return std::nullopt;
    content.erase(0, front);
    if (!has(flags.compressed)) return content;
    return inflated(content);
}

std::optional<std::string> Id3Contents::inflated(std::string_view compressed) {
    const std::size_t limit =
        std::min({maximumLength, bytesLeft_, compressed.size() * maximumRatio});
    z_stream stream = {};
    if (::inflateInit(&stream) != Z_OK) return std::nullopt;
    std::string in(compressed);
    stream.next_in = reinterpret_cast<Bytef*>(in.data());
    stream.avail_in = static_cast<uInt>(in.size());
    std::string plain;
    std::array<char, 16384> part{};
    int status = Z_OK;
    while (status == Z_OK && plain.size() <= limit) {
        stream.next_out = reinterpret_cast<Bytef*>(part.data());
        stream.avail_out = static_cast<uInt>(part.size());
        status = ::inflate(&stream, Z_NO_FLUSH);
        plain.append(part.data(), part.size() - stream.avail_out);
    }
    ::inflateEnd(&stream);
    // Also what turns out to be too much was work.
    bytesLeft_ -= std::min(bytesLeft_, plain.size());
    if (status != Z_STREAM_END || plain.size() > limit) return std::nullopt;
    return plain;
}

}  // namespace marquell::helpers
