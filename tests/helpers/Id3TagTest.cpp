// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "helpers/Bytes.h"
#include "helpers/sound/Id3Tag.h"
#include "helpers/sound/Id3V1.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::Pair;
using Key = platform::AudioVisualPropertyKey;

std::string sevenBits(std::size_t number) {
    std::string bytes(4, '\0');
    for (std::size_t i = 4; i-- > 0; number >>= 7) bytes[i] = static_cast<char>(number & 0x7F);
    return bytes;
}

std::string tag(char version, const std::string& content, int flags = 0) {
    return "ID3"s + version + '\0' + static_cast<char>(flags) + sevenBits(content.size()) + content;
}

/// Of ID3v2.3, and of 2.4 if the content is shorter than 128 bytes.
std::string frame(const std::string& id, const std::string& content, int flags = 0) {
    return id + big(content.size(), 4) + '\0' + static_cast<char>(flags) + content;
}

std::string text(const std::string& id, const std::string& content) {
    return frame(id, "\3" + content);
}

SoundTags read(const std::string& file) {
    SoundTags tags;
    MemoryInput input(file);
    addId3Tag(tags, input, 0, file.size());
    return tags;
}

/// The frames as "TIT2 text|...".
std::string framesOf(const std::string& file) {
    std::string all;
    for (const Id3Frame& found : read(file).id3) all += found.id + " " + found.text + "|";
    return all;
}

/// The text of the only frame of a tag.
std::string formOf(const std::string& id, const std::string& content) {
    return framesOf(tag(4, frame(id, content)));
}

TEST(Id3Tag, FindsTheFramesOfAllVersionsAndHabits) {
    const std::string one = text("TIT2", "One");
    const std::string two = text("TPE1", "Two");
    const std::string both = "TIT2 One|TPE1 Two|";
    const std::string longText(200, 'x');
    const std::string escaped = "\1\xFF\0\xFEO\0n\0e\0"s;
    const std::pair<std::string, std::string> files[] = {
        {tag(2, "TT2\0\0\4\3One"s + "TP1\0\0\4\3Two"s + zeros(20)), "TT2 One|TP1 Two|"},
        {tag(2, "TT2\0\0\4\3One"s, 0x40), ""},
        {tag(3, one + two + zeros(5)), both},
        {tag(3, one + frame("TALB", "") + text("TALB", "") + two), both},
        {tag(3, one + frame("tit2", "junk") + frame("T T2", "junk") + two), both},
        {tag(3, one + frame("????", "junk") + two), both},
        {tag(3, text("TT2 ", "One") + text("TP1\0"s, "Two")), "TT2 One|TP1 Two|"},
        {tag(3, big(6, 4) + zeros(6) + one + two, 0x40), both},
        {tag(4, big(6, 4) + "\1\0"s + one + two, 0x40), both},
        {tag(4, one + two, 0x40), both},
        {tag(3, "TIT2" + big(9, 4) + zeros(2) + escaped + two, 0x80), both},
        {tag(4, frame("TIT2", escaped, 2) + two), both},
        {tag(4, frame("TIT2", escaped) + two, 0x80), both},
        {tag(4, frame("TIT2", "g\0\0\0\4\3One"s, 0x41) + frame("TALB", "\0\3x"s, 4) + two), both},
        {tag(3, frame("TIT2", big(4, 4) + "\x78\x9C\x63\xF6\xCF\x4B\5\0\2\x3E\1\x26"s, 0x80)),
         "TIT2 One|"},
        // Lengths in the older form, also one that reads differently in the newer one.
        {tag(4, text("TIT2", longText) + two), "TIT2 " + longText + "|TPE1 Two|"},
        {tag(4, text("TIT2", longText + longText) + two),
         "TIT2 " + longText + longText + "|TPE1 Two|"},
        {tag(4, "TIT2" + sevenBits(201) + "\0\0\3"s + longText + two),
         "TIT2 " + longText + "|TPE1 Two|"},
        {tag(3, one + frame("APIC", zeros(100)) + two).substr(0, 60), "TIT2 One|"},
        {tag(3, one + "TPE1\xFF\xFF\xFF\xFF\0\0"s), "TIT2 One|"},
        {tag(5, one), ""},
        {"ID3\3\0\0\xFF\0\0\0"s + one, ""},
    };
    for (const auto& [file, expected] : files) EXPECT_EQ(framesOf(file), expected);
}

TEST(Id3Tag, ReadsTagsBehindEachOtherAsOne) {
    const std::string file =
        tag(3, text("TIT2", "One") + text("TDRC", "2001") + text("TPE1", "Kept")) +
        tag(4, text("TIT2", "Two") + text("TYER", "1999") + text("TPE1", ""), 0x10) + zeros(10);
    const std::string withSound = file + "sound";
    SoundTags tags;
    MemoryInput input(withSound);
    EXPECT_EQ(addId3Tag(tags, input, 0, input.size()), file.size());
    EXPECT_THAT(tags.common, ElementsAre(Pair(Key::commonKeyTitle, "Two"),
                                         Pair(Key::commonKeyCreationDate, "2001"),
                                         Pair(Key::commonKeyArtist, "Kept")));
    EXPECT_EQ(addId3Tag(tags, input, file.size(), input.size()), file.size());
    EXPECT_EQ(addId3Tag(tags, input, ~std::uint64_t{0}, ~std::uint64_t{0}), ~std::uint64_t{0});
}

TEST(Id3Tag, DecodesByWhatTheTextsShow) {
    const std::string contents[] = {
        "\0K\xF6ln"s,
        "\0K\xC3\xB6ln"s,
        "\3K\xF6ln"s,
        "\1\xFF\xFEK\0\xF6\0l\0n\0"s,
        "\1\xFE\xFF\0K\0\xF6\0l\0n"s,
        "\1K\0\xF6\0l\0n\0"s,
        "\1\0K\0\xF6\0l\0n"s,
        "\2\0K\0\xF6\0l\0n"s,
        "\0\xFF\xFEK\0\xF6\0l\0n\0"s,
        "\3\xEF\xBB\xBFK\xC3\xB6ln\0\0"s,
        "\7K\xF6ln"s,
    };
    for (const std::string& content : contents) EXPECT_EQ(formOf("TIT2", content), "TIT2 Köln|");
    EXPECT_EQ(formOf("TPE1", "\1\xFF\xFE\x41\0\0\0\xFE\xFF\0B"s), "TPE1 A, B|");
}

TEST(Id3Tag, WritesWhatIsUnusualInAForm) {
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"TCON", "\3(51)(39)Foo", "Techno-Industrial, Noise, Foo"},
        {"TCON", "\3(17)Rock\0RX\0(CR)\0((Odd)\0(999)x\000300"s,
         "Rock, Remix, Cover, (Odd), (999)x, 300"},
        {"TIPL", "\3mix\0Ann\0\0Bob\0cut"s, "mix: Ann, Bob, cut"},
        {"TXXX", "\3\0a\0b"s, "a, b"},
        {"TPE1", "\3One \r\n\0\n\0Two\nLines\n"s, "One, Two\nLines"},
        {"COMM", "\3engno end\n", "no end\n"},
        {"LINK", "TT2http://a.example\0"s, "TT2: http://a.example"},
        {"POPM", "who\0\0"s, "who"},
        {"PCNT", "\0\0\0\0\0\0\0\0\1\0\0\0\0"s, "4294967296"},
        {"MCDI", "A\0+\0009\0006\0\0\0"s, "A+96"},
        {"MCDI", "\0\x12\1\1\0\x14\1\0\0\0\2\0\0\x14\xAA\0\0\3\4\5"s + zeros(9), "150, 13805"},
        {"SYLT", "\3eng\2\1\0one\0\0\0\0\1two\0\0\0\0\2"s, "one\ntwo"},
        {"XABC", "plain", "plain"},
        {"UFID", "who\0"s + std::string(33, '\xFF'),
         [] {
             std::string hex = "who: ";
             for (int i = 0; i < 32; ++i) hex += "ff";
             return hex + "\u2026";
         }()},
    };
    for (const auto& [id, content, expected] : rows) {
        EXPECT_EQ(formOf(id, content), id + " " + expected + "|");
    }
    // No texts.
    for (const auto& [id, content] : std::initializer_list<std::pair<std::string, std::string>>{
             {"COMM", "\3engiTunNORM\0 0001"s}, {"GEOB", "text"}, {"XABC", "\1\2"}}) {
        EXPECT_EQ(formOf(id, content), "");
    }
}

TEST(Id3Tag, SetsTheCommonKeysByPreference) {
    const SoundTags tags = read(tag(
        3, text("TOLY", "Second") + text("TEXT", "") + text("TYER", "2001") + text("TDAT", "0302") +
               text("TIME", "1530") + text("TDRL", "1999") + frame("COMM", "\3engabout\0First"s) +
               frame("COMM", "\3eng\0Second"s) + frame("USLT", "\3eng\0Li"s) +
               frame("USLT", "\3engname\0La la"s) + text("TXXX", "make\0Old"s) +
               text("TXXX", "MAKE\0Maker"s) + text("TXXX", "publisher\0House"s) +
               text("TXXX", "Keywords\0sea, sky; ;sun"s) + text("TMED", "DIG") +
               text("TXXX", "com.apple.quicktime.location.ISO6709\0+52+013/"s) +
               text("TXXX", "location\0Home"s)));
    EXPECT_THAT(
        tags.common,
        ElementsAre(
            Pair(Key::commonKeySubject, "sea, sky; ;sun"), Pair(Key::commonKeyPublisher, "House"),
            Pair(Key::commonKeyCreationDate, "2001-02-03T15:30"), Pair(Key::commonKeyFormat, "DIG"),
            Pair(Key::commonKeySource, "DIG"), Pair(Key::commonKeyLocation, "+52+013/"),
            Pair(Key::commonKeyAuthor, "Second"), Pair(Key::commonKeyMake, "Maker")));
    EXPECT_EQ(tags.comment, "Second");
    EXPECT_EQ(tags.lyrics, "La la");
    EXPECT_THAT(tags.keywords, ElementsAre("sea", "sky", "sun"));
    for (const std::string name : {"USLT", "lyrics-eng", "Lyrics"}) {
        EXPECT_EQ(read(tag(3, text("TXXX", name + "\0La la"s))).lyrics, "La la");
    }
}

TEST(Id3Tag, BoundsFramesAndTexts) {
    std::string many;
    for (int i = 0; i < 20'000; ++i) many += text("TIT2", "x");
    EXPECT_EQ(read(tag(3, many)).id3.size(), maximumSteps);
    const std::string large = tag(3, text("TIT2", std::string(500'000, 'x')));
    std::string tags;
    for (int i = 0; i < 8; ++i) tags += large;
    EXPECT_EQ(read(tags).id3.size(), 4U);
    EXPECT_TRUE(read(tag(3, text("TIT2", std::string(1'048'576, 'x')))).id3.empty());
}

TEST(Id3V1, AddsWhatIsMissing) {
    std::string end = "TAG" + "K\xF6ln"s + zeros(26) + "Artist" + zeros(24) + "Album" + zeros(25) +
                      "1999" + "Note" + zeros(26) + "\x11";
    const std::string file = "sound" + end;
    SoundTags tags;
    tags.common[Key::commonKeyArtist] = "Known";
    MemoryInput input(file);
    addId3V1Tag(tags, input);
    EXPECT_THAT(
        tags.common,
        ElementsAre(Pair(Key::commonKeyTitle, "Köln"), Pair(Key::commonKeyCreationDate, "1999"),
                    Pair(Key::commonKeyType, "Rock"), Pair(Key::commonKeyAlbumName, "Album"),
                    Pair(Key::commonKeyArtist, "Known")));
    EXPECT_EQ(tags.comment, "Note");
}

}  // namespace
}  // namespace marquell::helpers
