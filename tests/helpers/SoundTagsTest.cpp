// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <array>
#include <map>
#include <string>
#include <vector>

#include "helpers/Bytes.h"
#include "helpers/common/TagDate.h"
#include "helpers/sound/Iso6709.h"
#include "helpers/sound/SoundTagIndex.h"
#include "helpers/sound/SoundTags.h"
#include "platform/IndexAttributes.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;
using Key = platform::AudioVisualPropertyKey;
using Common = std::map<Key, std::string>;

SoundTags read(const std::string& bytes, std::string_view extension = "") {
    MemoryInput input(bytes);
    return readSoundTags(input, extension);
}

std::string item(std::string_view type, const std::string& value, std::uint64_t kind = 1) {
    return box(type, box("data", big(kind, 4) + zeros(4) + value));
}

std::string classic(std::string_view type, const std::string& text, std::uint64_t language) {
    return box(type, big(text.size(), 2) + big(language, 2) + text);
}

std::string handler(std::string_view kind) {
    return fullBox("hdlr", zeros(4).append(kind) + zeros(13));
}

std::string keys(const std::vector<std::string>& names) {
    std::string entries;
    for (const std::string& name : names) entries += box("mdta", name);
    return fullBox("keys", big(names.size(), 4) + entries);
}

std::string film(const std::string& children) {
    return box("ftyp", "qt  "s + zeros(4)) + box("mdat", zeros(50'000)) + box("moov", children);
}

constexpr std::uint64_t german = 0x10B5;  // "deu" packed

TEST(SoundTags, PrefersTheRicherFamiliesOfQuickTimeTags) {
    const std::string meta =
        box("meta", handler("mdta") +
                        keys({"title", "com.apple.quicktime.title", "org.example.tool.author",
                              "com.apple.quicktime.location.name", "com.android.version",
                              "com.apple.quicktime.camera.identifier"}) +
                        box("ilst", item(big(1, 4), "plain") + item(big(2, 4), "key") +
                                        item(big(3, 4), "key author") + item(big(4, 4), "Berlin") +
                                        item(big(5, 4), "14") + item(big(6, 4), "Back") +
                                        item(big(7, 4), "no such key")));
    const std::string items = fullBox(
        "meta", handler("mdir") +
                    box("ilst", item("\251nam", "item") + item("gnre", big(18, 2), 0) +
                                    item("\251alb", "\0A\0l"s, 2) + item("tvsh", big(7, 1), 21) +
                                    item("covr", zeros(20), 13) +
                                    box("----", fullBox("mean", "com.apple.iTunes") +
                                                    fullBox("name", "LABEL") +
                                                    box("data", big(1, 4) + zeros(4) + "Own"))));
    const std::string place = "\x10\xB5Paris\0\0"s + big(0xFFF2C000, 4) + big(0x348000, 4) +
                              big(34 << 16, 4) + "earth\0\0"s;
    const std::string userData =
        box("udta", items + classic("\251nam", "user", german) + classic("\251ART", "J\x9Arg", 0) +
                        classic("\251aut", "Ute", german) + fullBox("titl", "\x10\xB5mobile\0"s) +
                        fullBox("loci", place) + fullBox("kywd", "\x10\xB5\2\3\303\244\0\3b, "s) +
                        zeros(4));
    const Common expected = {
        {Key::commonKeyTitle, "key"},
        {Key::commonKeyAuthor, "key author"},
        {Key::commonKeyArtist, "J\u00F6rg"},
        {Key::commonKeyAlbumName, "Al"},
        {Key::commonKeyType, "Rock"},
        {Key::commonKeyRelation, "7"},
        {Key::commonKeyPublisher, "Own"},
        {Key::commonKeySubject, "\u00E4, b,"},
        {Key::commonKeyLocation, "+52.5000-013.2500+034.0000/"},
    };
    const SoundTags tags = read(film(meta + userData));
    EXPECT_EQ(tags.common, expected);
    EXPECT_EQ(tags.keywords, (std::vector<std::string>{"\u00E4", "b"}));
}

TEST(SoundTags, TakesDatesAndLanguageFromHeaders) {
    const auto media = [](std::uint64_t language) {
        return box("trak", box("mdia", fullBox("mdhd", zeros(16) + big(language, 2) + zeros(2))));
    };
    const auto movie = [](std::uint64_t version, std::uint64_t created, std::uint64_t changed) {
        const std::size_t length = version == 1 ? 8 : 4;
        return fullBox("mvhd", big(created, length) + big(changed, length), version);
    };
    const Common expected = {{Key::commonKeyCreationDate, "2024-02-29T12:30:15Z"},
                             {Key::commonKeyLastModifiedDate, "9999-12-31T23:59:59Z"},
                             {Key::commonKeyLanguage, "deu"}};
    EXPECT_EQ(read(film(movie(1, 3792054615, 255485145599) + media(german) + media(0))).common,
              expected);
    EXPECT_EQ(read(film(movie(1, 0, 255485145600) + media(0x55C4))).common, Common());
    EXPECT_EQ(read(film(movie(0, 1709209815, 0))).common,
              (Common{{Key::commonKeyCreationDate, "2024-02-29T12:30:15Z"}}));
}

std::string chunk(std::string_view type, const std::string& content) {
    return std::string(type) + little(content.size(), 4) + content + zeros(content.size() % 2);
}

std::string wave(const std::string& chunks) {
    return "RIFF" + little(4 + chunks.size(), 4) + "WAVE" + chunks;
}

TEST(SoundTags, PrefersId3ToInfoToTheBroadcastExtension) {
    const std::string broadcast = "About" + zeros(251) + "Maker" + zeros(27) + "Number" +
                                  zeros(26) + "2024-02-29" + "12-30-15" + zeros(264);
    const std::string id3 = "ID3\3\0\0"s + big(14, 4) + "TPE1" + big(4, 4) + zeros(3) + "Id3";
    const std::string list =
        chunk("LIST", "INFO" + chunk("IART", "Info"s + zeros(1)) + chunk("INAM", "T\xF6n\0rest"s) +
                          chunk("ICMT", "Remark"));
    const Common expected = {
        {Key::commonKeyArtist, "Id3"},        {Key::commonKeyTitle, "T\u00F6n"},
        {Key::commonKeyDescription, "About"}, {Key::commonKeyCreator, "Maker"},
        {Key::commonKeyIdentifier, "Number"}, {Key::commonKeyCreationDate, "2024-02-29"}};
    const SoundTags tags =
        read(wave(chunk("bext", broadcast) + chunk("data", zeros(3)) + list + chunk("id3 ", id3)));
    EXPECT_EQ(tags.common, expected);
    EXPECT_EQ(tags.comment, "Remark");
    EXPECT_EQ(read(wave(list + "LIST")).common.at(Key::commonKeyDescription), "Remark");
}

TEST(SoundTags, KeepsAnnotationsWithoutNames) {
    const auto au = [](const std::string& text) {
        return ".snd" + big(24 + text.size(), 4) + zeros(16) + text;
    };
    EXPECT_EQ(read(au("Artist=A\nother=B\n\0"s)).common, (Common{{Key::commonKeyArtist, "A"}}));
    EXPECT_EQ(read(au("Birds = at dawn")).common,
              (Common{{Key::commonKeyDescription, "Birds = at dawn"}}));
}

TEST(SoundTags, EndsWithinBoundsOnHostileCounts) {
    std::string many;
    for (int i = 0; i < 200'000; ++i) many += item("\251nam", "");
    const std::string items = fullBox("meta", handler("mdir") + box("ilst", many));
    EXPECT_TRUE(read(film(box("udta", items))).isEmpty());
    EXPECT_EQ(read(film(box("udta", box("\251nam", std::string(2'000'000, 'x'))))).common,
              Common());
    std::string nested;
    for (int depth = 0; depth < 20'000; ++depth) nested += big(0, 4) + "moov";
    EXPECT_TRUE(read(nested).isEmpty());
    EXPECT_TRUE(
        read("caff\0\1\0\0info"s + std::string(8, '\x7F') + std::string(9, '\xFF')).isEmpty());
}

TEST(SoundTags, BecomeAttributes) {
    const std::vector<std::string> comments = {"ARTIST=A",        "artist=B",
                                               "AUTHOR=C",        "Keywords=x; y",
                                               "LOCATION=Berlin", "date=2024:02:29 12:30"};
    std::string block = little(0, 4) + little(comments.size() + 1, 4);
    for (const std::string& comment : comments) block += little(comment.size(), 4) + comment;
    platform::PropertyDictionary index;
    addSoundTagIndex(index, read("fLaC\x84" + big(block.size(), 3) + block));
    const auto number = [](platform::IndexAttribute attribute) {
        return static_cast<platform::PropertyKey>(attribute);
    };
    using Texts = std::vector<std::string>;
    using Attribute = platform::IndexAttribute;
    const platform::PropertyDictionary expected = {
        {number(Attribute::kMDItemAuthors), Texts{"A", "B", "C"}},
        {number(Attribute::kMDItemKeywords), Texts{"x", "y"}},
        {number(Attribute::kMDItemNamedLocation), "Berlin"},
        {number(Attribute::kMDItemContentCreationDate), "2024-02-29T12:30"}};
    EXPECT_EQ(index, expected);
}

TEST(TagDate, BringsDatesToOneForm) {
    const std::pair<std::string, std::string> dates[] = {
        {"2024", "2024"},
        {"2024-02", "2024-02"},
        {"2024-00-00", "2024"},
        {" 2024:02:29 12:30:15 ", "2024-02-29T12:30:15"},
        {"2024-02-29T12:30:15.25+0100", "2024-02-29T12:30:15.25+01:00"},
        {"2024/2/9 1:30", "2024-02-09T01:30"},
        {"20240229", "2024-02-29"},
        {"20240229T123015Z", "2024-02-29T12:30:15Z"},
        {"2024-02-29T12:30:15.000000-05", "2024-02-29T12:30:15.000000-05:00"},
        {"Thu Feb 29 12:30:15 2024\n", "2024-02-29T12:30:15"},
        {"2023-02-29", ""},
        {"2024-13-01", ""},
        {"12345", ""},
        {"29.02.2024", ""},
        {"0000", ""},
        {"soon", ""},
        {"", ""},
    };
    for (const auto& [text, expected] : dates) EXPECT_EQ(isoDate(text), expected) << text;
}

TEST(Iso6709, ReadsDegreesMinutesAndSeconds) {
    const auto formOf = [](std::string_view text) {
        const auto position = parseIso6709(text);
        return position ? iso6709Text(*position) : "";
    };
    const std::pair<std::string, std::string> texts[] = {
        {"+52.5-013.25/", "+52.5000-013.2500/"},
        {"+5230.0-01315+34.5CRSWGS_84/", "+52.5000-013.2500+034.5000/"},
        {"-523000+0131500.0", "-52.5000+013.2500/"},
        {"+90.5+010/", ""},
        {"+52.5.5+013/", ""},
        {"52.5,13.25", ""},
        {"Berlin", ""},
    };
    for (const auto& [text, expected] : texts) EXPECT_EQ(formOf(text), expected) << text;
}

}  // namespace
}  // namespace marquell::helpers
