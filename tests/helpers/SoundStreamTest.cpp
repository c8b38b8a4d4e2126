// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>

#include "helpers/Bytes.h"
#include "helpers/sound/SoundStream.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;

std::string chunk(std::string_view type, const std::string& content) {
    return std::string(type) + little(content.size(), 4) + content;
}

std::string riff(const std::string& chunks, std::string_view magic = "RIFF",
                 std::uint64_t length = 0) {
    return std::string(magic) + little(length == 0 ? 4 + chunks.size() : length, 4) + "WAVE" +
           chunks;
}

/// Two channels at 8000 Hz.
std::string format(std::uint64_t tag, std::uint64_t bits, const std::string& more = "") {
    const std::uint64_t frame = 2 * bits / 8;
    return chunk("fmt ", little(tag, 2) + little(2, 2) + little(8000, 4) + little(8000 * frame, 4) +
                             little(frame, 2) + little(bits, 2) + more);
}

std::string aiff(const std::string& compression, std::uint64_t frames, const std::string& rate) {
    const std::string common = big(2, 2) + big(frames, 4) + big(16, 2) + rate + compression;
    const std::string chunks =
        "COMM" + big(common.size(), 4) + common + "SSND" + big(8 + 3200, 4) + zeros(3208);
    return "FORM" + big(4 + chunks.size(), 4) + (compression.empty() ? "AIFF" : "AIFC") + chunks;
}

std::string caf(std::string_view codec, std::uint64_t flags, std::uint64_t bits,
                const std::string& chunks) {
    const std::uint64_t frame = 2 * bits / 8;
    const std::string rate("\x40\xBF\x40\0\0\0\0\0", 8);  // 8000
    return "caff\0\1\0\0desc"s + big(32, 8) + rate + std::string(codec) + big(flags, 4) +
           big(frame, 4) + big(bits == 0 ? 0 : 1, 4) + big(2, 4) + big(bits, 4) + chunks;
}

std::string flac(std::uint64_t frames) {
    return "fLaC\0"s + big(34, 3) + zeros(10) + big(8000ULL << 44U | 23ULL << 36U | frames, 8) +
           zeros(16) + "\x81"s + big(100, 3) + zeros(100) + zeros(1000);
}

struct Case {
    std::string bytes;
    std::string codec;
    double seconds;  ///< -1: none; so with the others
    double bitRate;
    double bits;
};

TEST(SoundStream, ReadsHeadersOfAllKinds) {
    const std::string eight = big(0x400B, 2) + big(8000ULL << 51U, 8);  // 8000 in 80 bits
    const std::string extensible = little(22, 2) + little(20, 2) + zeros(4) + little(3, 2);
    const std::string data = chunk("data", zeros(3200));
    const Case cases[] = {
        {riff(format(1, 16) + data), "Linear PCM", 0.1, 256000, 16},
        {riff(format(0xFFFE, 32, extensible) + data), "Linear PCM, floating point", 0.05, 512000,
         20},
        {riff(format(1, 16) + "data" + little(0, 4) + zeros(3200), "RIFF", 36), "Linear PCM", 0.1,
         256000, 16},
        {riff(format(1, 16) + "data" + little(0, 4) + chunk("LIST", "INFO")), "Linear PCM", 0,
         256000, 16},
        {riff(format(1, 16) + "data" + little(0xFFFFFFFF, 4) + zeros(3200), "RIFF", 0xFFFFFFFF),
         "Linear PCM", 0.1, 256000, 16},
        {riff(chunk("ds64", zeros(8) + little(1600, 8) + zeros(12)) + format(1, 16) + "data" +
                  little(0xFFFFFFFF, 4) + zeros(1600) + chunk("LIST", zeros(1600)),
              "RF64", 0xFFFFFFFF),
         "Linear PCM", 0.05, 256000, 16},
        {riff(format(0x11, 4) + chunk("fact", little(16000, 4)) + data), "IMA ADPCM", 2, 64000, -1},
        {riff(format(0x99, 0) + data), "", -1, -1, -1},
        {aiff("", 800, eight), "Linear PCM", 0.1, 256000, 16},
        {aiff("ima4", 125, eight), "IMA ADPCM", 1, 25600, -1},
        {aiff("", 800, zeros(10)), "Linear PCM", -1, -1, 16},
        {caf("lpcm", 1, 32, "data" + big(~0ULL, 8) + zeros(4 + 6400)), "Linear PCM, floating point",
         0.1, 512000, 32},
        {caf("alac", 3, 0,
             "data" + big(4 + 1000, 8) + zeros(1004) + "pakt" + big(24, 8) + big(1, 8) +
                 big(4000, 8) + zeros(8)),
         "Apple Lossless", 0.5, 16000, 24},
        {caf("alac", 0, 0,
             "kuki" + big(48, 8) + big(12, 4) + "frmaalac" + zeros(12 + 5) + "\x14" + zeros(18)),
         "Apple Lossless", 0, -1, 20},
        {".snd" + big(24, 4) + big(0xFFFFFFFF, 4) + big(1, 4) + big(8000, 4) + big(2, 4) +
             zeros(1600),
         "\u00B5-law", 0.1, 128000, 8},
        {flac(4000), "FLAC", 0.5, 16000, 24},
        {flac(0), "FLAC", -1, -1, 24},
        {"ID3\4\0\0"s + big(5, 4) + zeros(5) + flac(4000), "FLAC", 0.5, 16000, 24},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(::testing::Message() << "case " << &expected - &cases[0]);
        MemoryInput input(expected.bytes);
        const auto stream = readSoundStream(input);
        ASSERT_TRUE(stream);
        EXPECT_EQ(stream->codec, expected.codec);
        EXPECT_DOUBLE_EQ(stream->seconds.value_or(-1), expected.seconds);
        EXPECT_DOUBLE_EQ(stream->bitRate.value_or(-1), expected.bitRate);
        const double bits =
            stream->bitsPerSample ? static_cast<double>(*stream->bitsPerSample) : -1;
        EXPECT_EQ(bits, expected.bits);
    }
    for (const std::string& other : {"RIFF\0\0\0\0AVI "s, "FORM\0\0\0\0ILBM"s, "OggS"s, ""s}) {
        MemoryInput input(other);
        EXPECT_FALSE(readSoundStream(input));
    }
}

}  // namespace
}  // namespace marquell::helpers
