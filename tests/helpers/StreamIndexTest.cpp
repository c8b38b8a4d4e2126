// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <bit>
#include <string>
#include <vector>

#include "helpers/Bytes.h"
#include "helpers/streams/StreamReaders.h"
#include "platform/IndexAttributes.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;
using platform::IndexAttribute;
using platform::PropertyDictionary;
using Texts = std::vector<std::string>;

std::optional<PropertyDictionary> read(const std::string& bytes, std::string_view extension) {
    prepareStreamReaders();
    MemoryInput input(bytes);
    return streamIndex(input, extension);
}

platform::PropertyValue valueOf(const std::optional<PropertyDictionary>& index,
                                IndexAttribute attribute) {
    const auto found = index.value().find(static_cast<platform::PropertyKey>(attribute));
    return found != index->end() ? found->second : platform::PropertyValue("none");
}

/// Of Matroska, by the bytes of its number.
std::string element(const std::string& number, const std::string& content) {
    return number + "\x08"s + big(content.size(), 4) + content;
}

std::string track(int number, int kind, const std::string& codec, const std::string& more = {}) {
    const auto byte = [](int value) { return big(static_cast<std::uint64_t>(value), 1); };
    return element("\xAE", element("\xD7", byte(number)) + element("\x73\xC5", byte(number)) +
                               element("\x83", byte(kind)) + element("\x86", codec) + more);
}

std::string tag(const std::string& name, const std::string& text) {
    return element("\x67\xC8", element("\x45\xA3", name) + element("\x44\x87", text));
}

std::string matroska(const std::string& tracks, const std::string& tags) {
    const std::string seconds = big(std::bit_cast<std::uint64_t>(2500.0), 8);
    return element("\x1A\x45\xDF\xA3", element("\x42\x82", "matroska")) +
           element("\x18\x53\x80\x67", element("\x15\x49\xA9\x66", element("\x44\x89", seconds)) +
                                           element("\x16\x54\xAE\x6B", tracks) +
                                           element("\x12\x54\xC3\x67", tags) +
                                           element("\x1F\x43\xB6\x75", element("\xE7", big(0, 1))));
}

std::uint32_t oggChecksum(const std::string& bytes) {
    std::uint32_t sum = 0;
    for (const char byte : bytes) {
        sum ^= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << 24;
        for (int bit = 0; bit < 8; ++bit) sum = sum << 1 ^ (sum >> 31) * 0x04C11DB7;
    }
    return sum;
}

TEST(StreamIndex, TellsStreamsAndTagsByTheHeader) {
    const std::string size = element("\xB0", big(320, 2)) + element("\xBA", big(240, 2));
    const std::string rate = element("\xB5", big(std::bit_cast<std::uint64_t>(8000.0), 8));
    const auto index = read(
        matroska(track(1, 17, "S_TEXT/UTF8") + track(2, 1, "V_VP9", element("\xE0", size)) +
                     track(3, 2, "A_PCM/INT/LIT",
                           element("\xE1", rate + element("\x9F", big(1, 1)) +
                                               element("\x62\x64", big(16, 1)))) +
                     track(4, 2, "A_PCM/INT/LIT",
                           element("\xE1", rate + element("\x62\x64", big(16, 1)))),
                 element("\x73\x73", tag("TITLE", "K\xF6ln") + tag("COMMENT", "Cathedral") +
                                         tag("DATE_RECORDED", "2024-02-29") +
                                         tag("PERFORMER", "A;B") + tag("KEYWORDS", "sea, sky")) +
                     element("\x73\x73", element("\x63\xC0", element("\x63\xC5", big(2, 1))) +
                                             tag("BPS", "98765"))),
        "mkv");
    const std::pair<IndexAttribute, platform::PropertyValue> expected[] = {
        {IndexAttribute::kMDItemMediaTypes, Texts{"Subtitles", "Video", "Sound"}},
        {IndexAttribute::kMDItemCodecs, Texts{"SubRip subtitle", "VP9", "Linear PCM"}},
        {IndexAttribute::kMDItemDurationSeconds, 2.5},
        {IndexAttribute::kMDItemPixelWidth, 320.0},
        {IndexAttribute::kMDItemPixelHeight, 240.0},
        {IndexAttribute::kMDItemPixelCount, 76800.0},
        {IndexAttribute::kMDItemBitsPerSample, 16.0},
        {IndexAttribute::kMDItemAudioBitRate, 256000.0},
        {IndexAttribute::kMDItemVideoBitRate, 98765.0},
        {IndexAttribute::kMDItemTitle, "K\u00F6ln"},
        {IndexAttribute::kMDItemDescription, "Cathedral"},
        {IndexAttribute::kMDItemContentCreationDate, "2024-02-29"},
        {IndexAttribute::kMDItemAuthors, Texts{"A", "B"}},
        {IndexAttribute::kMDItemKeywords, Texts{"sea", "sky"}},
    };
    for (const auto& [attribute, value] : expected) {
        EXPECT_EQ(valueOf(index, attribute), value) << static_cast<int>(attribute);
    }
}

TEST(StreamIndex, ReadsFramesWhereTheHeaderIsSilentAndTakesNoPictureForVideo) {
    std::string frames;
    for (int i = 0; i < 100; ++i) frames += "\xFF\xFB\x90\xC4" + zeros(413);
    const std::string picture =
        "\0image/png\0\3\0"s + "\x89PNG\r\n\x1A\n" + big(13, 4) + "IHDR" + zeros(500);
    const std::string id3 = "ID3\3\0\0"s + zeros(2) + big((picture.size() + 10) >> 7, 1) +
                            big((picture.size() + 10) & 0x7F, 1) + "APIC" + big(picture.size(), 4) +
                            zeros(2) + picture;
    for (const std::string& bytes : {frames, id3 + frames}) {
        const auto index = read(bytes, "mp3");
        EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemMediaTypes),
                  platform::PropertyValue(Texts{"Sound"}));
        EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemCodecs),
                  platform::PropertyValue(Texts{"MP3"}));
        EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemAudioBitRate),
                  platform::PropertyValue(128000.0));
        EXPECT_NEAR(std::get<double>(valueOf(index, IndexAttribute::kMDItemDurationSeconds)), 2.6,
                    0.05);
    }
}

TEST(StreamIndex, TakesNothingFromTheLibraryThatTheReadersRefuse) {
    const auto chunk = [](const std::string& type, const std::string& content) {
        return type + little(content.size(), 4) + content;
    };
    const std::string bytes = chunk("fmt ", little(1, 2) + little(1, 2) + little(8000, 4) +
                                                little(16000, 4) + little(2, 2) + little(16, 2)) +
                              chunk("LIST", "INFO" + chunk("INAM", std::string(2 << 20, 'x'))) +
                              chunk("data", zeros(3200));
    const auto index = read("RIFF" + little(4 + bytes.size(), 4) + "WAVE" + bytes, "wav");
    EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemCodecs),
              platform::PropertyValue(Texts{"Linear PCM"}));
    EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemTitle), platform::PropertyValue("none"));
}

TEST(StreamIndex, TellsDescriptionsOfOggFromComments) {
    const auto page = [](std::uint64_t number, const std::string& packet) {
        const std::string start = "OggS\0"s + big(number == 0 ? 2 : 0, 1) +
                                  little(number * 480, 8) + little(1, 4) + little(number, 4);
        const std::string rest = big(1, 1) + big(packet.size(), 1) + packet;
        return start + little(oggChecksum(start + zeros(4) + rest), 4) + rest;
    };
    const std::string head = "OpusHead\1\2"s + zeros(2) + little(48000, 4) + zeros(3);
    const std::pair<std::string, std::string> rows[] = {{"DESCRIPTION=About", "none"},
                                                        {"comment=About", "About"}};
    for (const auto& [field, comment] : rows) {
        const std::string tags =
            "OpusTags" + little(0, 4) + little(1, 4) + little(field.size(), 4) + field;
        const auto index = read(page(0, head) + page(1, tags) + page(2, "\xFC"), "opus");
        EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemDescription),
                  platform::PropertyValue("About"));
        EXPECT_EQ(valueOf(index, IndexAttribute::kMDItemComment), platform::PropertyValue(comment));
    }
}

TEST(StreamIndex, RefusesWhatIsNeitherSoundNorVideo) {
    for (const std::string& bytes :
         {"ffconcat version 1.0\nfile 'a.wav'\n"s, "#EXTM3U\n#EXTINF:1,\na.wav\n"s,
          "\x1B[31mred\x1B[0m\r\n\x1B[2J"s, "<svg xmlns='http://www.w3.org/2000/svg'/>"s,
          "1\n00:00:01,000 --> 00:00:02,000\nHello\n"s, zeros(5000), ""s}) {
        for (const char* extension : {"mp3", "m3u8", "txt", ""}) {
            EXPECT_FALSE(read(bytes, extension)) << bytes.substr(0, 20) << " " << extension;
        }
    }
}

}  // namespace
}  // namespace marquell::helpers
