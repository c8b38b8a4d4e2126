// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "helpers/Bytes.h"
#include "helpers/image/IptcReader.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;
using Key = platform::ImagePropertyKey;
using platform::PropertyDictionary;
using Texts = std::vector<std::string>;

constexpr int city = 90;
constexpr int keywords = 25;
constexpr int caption = 120;

std::string dataSet(int record, int number, const std::string& content) {
    return "\x1C" + big(static_cast<std::uint64_t>(record), 1) +
           big(static_cast<std::uint64_t>(number), 1) + big(content.size(), 2) + content;
}

std::string text(int number, const std::string& content) { return dataSet(2, number, content); }

PropertyDictionary read(const std::string& block) {
    PropertyDictionary properties;
    addIptcProperties(properties, block);
    return properties;
}

PropertyDictionary withCity(const std::string& name) {
    return {{static_cast<platform::PropertyKey>(Key::kCGImagePropertyIPTCCity), name}};
}

TEST(IptcReader, DecodesByTheDeclaredOrLikelyCharacterSet) {
    const std::pair<std::string, std::string> declared[] = {
        {"\x1B%G", "K\xC3\xB6ln"}, {"\x1B%/I", "K\xC3\xB6ln"}, {"\x1B-A", "K\xF6ln"},
        {"\x1B.B", "K\xF6ln"},     {"\x1B%G", "K\xF6ln"},      {"", "K\xF6ln"},
        {"nonsense", "K\xF6ln"}};
    for (const auto& [sequence, bytes] : declared) {
        EXPECT_EQ(read(dataSet(1, 90, sequence) + text(city, bytes)), withCity("K\u00F6ln"));
    }
    EXPECT_EQ(read(dataSet(1, 90, "\x1B-B") + text(city,
                                                   "\xA3\xF3"
                                                   "d\xBC")),
              withCity("\u0141\u00F3d\u017A"));
    EXPECT_EQ(read(dataSet(1, 90, "\x1B.L") + text(city, "\xBC\xD8\xE0")),
              withCity("\u041C\u0438\u0440"));
    EXPECT_EQ(read(text(city, "\x80\x93 \x99")), withCity("\u20AC\u201C \u2122"));
}

TEST(IptcReader, MakesListsOfWhatIsRepeated) {
    const auto properties =
        read(text(keywords, "sea") + text(city, "A \0"s) + text(keywords, "sky, blue") +
             text(keywords, "   ") + text(0, "\0\2"s) + text(254, "private"));
    const PropertyDictionary expected = {
        {static_cast<platform::PropertyKey>(Key::kCGImagePropertyIPTCKeywords),
         Texts{"sea", "sky, blue"}},
        {static_cast<platform::PropertyKey>(Key::kCGImagePropertyIPTCCity), "A"}};
    EXPECT_EQ(properties, expected);
}

TEST(IptcReader, KeepsWhatPrecedesABrokenDataSet) {
    const std::string good = text(city, "A");
    const std::string extended =
        "\x1C\2"s + big(caption, 1) + big(0x8004, 2) + big(70'000, 4) + std::string(70'000, 'x');
    EXPECT_EQ(read(good + extended).size(), 2U);
    for (const std::string& broken :
         {"\x1C\2\x5A\xFF\xFF"s, "\x1C\2\x5A\x80\x09"s + zeros(20),
          "\x1C\2\x5A\0\x09"
          "B"s,
          "\x1C\2\x5A\x80\x08"s + std::string(8, '\xFF'), "garbage"s, "\x1C"s}) {
        EXPECT_EQ(read(good + broken), withCity("A"));
    }
}

}  // namespace
}  // namespace marquell::helpers
