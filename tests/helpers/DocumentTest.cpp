// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "helpers/Bytes.h"
#include "helpers/documents/DocumentReaders.h"
#include "helpers/documents/MessageDate.h"
#include "helpers/documents/ZipArchive.h"
#include "platform/IndexAttributes.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;
using Attribute = platform::IndexAttribute;
using Texts = std::vector<std::string>;

/// A ZIP file of members that are not packed. `isWide` has their places in the extra fields that
/// archives beyond 4 GB need.
std::string archiveOf(const std::vector<std::pair<std::string, std::string>>& members,
                      bool isWide = false) {
    std::string content;
    std::string directory;
    for (const auto& [name, bytes] : members) {
        const std::string length = little(isWide ? 0xFFFFFFFF : bytes.size(), 4);
        const std::string extra = isWide ? little(7, 2) + little(2, 2) + "??" + little(1, 2) +
                                               little(24, 2) + little(bytes.size(), 8) +
                                               little(bytes.size(), 8) + little(content.size(), 8)
                                         : "";
        directory += "PK\1\2" + zeros(16) + length + length + little(name.size(), 2) +
                     little(extra.size(), 2) + zeros(10) +
                     little(isWide ? 0xFFFFFFFF : content.size(), 4) + name + extra;
        content +=
            "PK\3\4" + zeros(22) + little(name.size(), 2) + little(3, 2) + name + "???" + bytes;
    }
    return content + directory + "PK\5\6" + zeros(8) + little(directory.size(), 4) +
           little(content.size(), 4) + little(7, 2) + "comment";
}

std::string textOf(const std::optional<platform::PropertyDictionary>& properties,
                   Attribute attribute) {
    const auto number = static_cast<platform::PropertyKey>(attribute);
    if (!properties || !properties->contains(number)) return {};
    const auto* const list = std::get_if<Texts>(&properties->at(number));
    if (list == nullptr) return std::get<std::string>(properties->at(number));
    std::string joined;
    for (const std::string& text : *list) joined += text + "|";
    return joined;
}

std::string packageText(const std::vector<std::pair<std::string, std::string>>& members,
                        Attribute attribute) {
    const std::string bytes = archiveOf(members);
    MemoryInput input(bytes);
    return textOf(packageIndex(input), attribute);
}

std::string pageText(const std::string& page, Attribute attribute) {
    MemoryInput input(page);
    return textOf(webPageIndex(input), attribute);
}

std::string messageText(const std::string& headers, Attribute attribute) {
    const std::string bytes = "Message-ID: 1\n" + headers + "\n\nSubject: of no header";
    MemoryInput input(bytes);
    return textOf(messageIndex(input), attribute);
}

TEST(DocumentPackage, FindsMembersHoweverTheirPlacesAreWritten) {
    for (const bool isWide : {false, true}) {
        const std::string bytes = archiveOf({{"a", "first"}, {"bb", "second"}}, isWide);
        MemoryInput input(bytes);
        const ZipArchive archive(input);
        EXPECT_EQ(archive.member("a", 100), "first");
        EXPECT_EQ(archive.member("bb", 3), "sec");
        EXPECT_EQ(archive.member("b", 100), "");
    }
}

TEST(DocumentPackage, ReadsWhatProgramsWriteInTheirOwnWays) {
    const std::string type = "http://purl.oclc.org/ooxml/x/metadata/core-properties";
    const std::string relation = "<R Type='" + type + "' Target='/p.xml'/>";
    const std::string open = "application/vnd.oasis.opendocument.text";
    const auto office = [&](const std::string& content, Attribute attribute) {
        return packageText({{"_rels/.rels", relation}, {"p.xml", content}}, attribute);
    };
    EXPECT_EQ(
        office("<coreProperties><x:title>A<![CDATA[ &amp; ]]>B</x:title>", Attribute::kMDItemTitle),
        "A &amp; B");
    EXPECT_EQ(office("<c:coreProperties><keywords>a, b<v>c</v></keywords><broken</x>",
                     Attribute::kMDItemKeywords),
              "a|b|c|");
    EXPECT_EQ(packageText(
                  {{"docProps/core.xml", "<coreProperties><title>T"}, {"[Content_Types].xml", ""}},
                  Attribute::kMDItemTitle),
              "T");
    EXPECT_EQ(packageText({{"mimetype", open}, {"meta.xml", "<meta><creator>E</creator></meta>"}},
                          Attribute::kMDItemAuthors),
              "E|");
    EXPECT_EQ(packageText({{"META-INF/container.xml", "<rootfile full-path='a/b'/>"},
                           {"a/b", "<metadata><date>0101-01-01</date><date>2024-02</date>"}},
                          Attribute::kMDItemContentCreationDate),
              "2024-02");
    const std::pair<std::string, std::string> descriptions[] = {
        {"&lt;p class='a'>A&amp;amp;&lt;b>B&lt;/b>&lt;/p>\n&lt;br/>C&lt;P>", "A&B C"},
        {"1\n2 &lt; 3 &lt;b &amp;lt; &lt;a@b> ", "1\n2 < 3 <b < <a@b>"},
    };
    for (const auto& [markup, text] : descriptions) {
        EXPECT_EQ(packageText({{"META-INF/container.xml", "<rootfile full-path='a/b'/>"},
                               {"a/b", "<metadata><description>" + markup + "</description>"}},
                              Attribute::kMDItemDescription),
                  text);
    }
    const std::string bytes = archiveOf({{"mimetype", "text/plain"}, {"a.xml", "<meta/>"}});
    MemoryInput other(bytes);
    EXPECT_FALSE(packageIndex(other));
}

TEST(DocumentWebPage, TakesTheBestOfWhatIsInAnyEncoding) {
    const std::string wide = "\xFF\xFE<\0t\0i\0t\0l\0e\0>\0\xE9\0<\0/\0t\0i\0t\0l\0e\0>\0"s;
    const std::pair<std::string, std::string> titles[] = {
        {"<meta property=og:title content=B><title>A</title>", "A"},
        {"<meta property=og:title content=B><title> </title>", "B"},
        {"<title>\xE9</title>", "\u00E9"},
        {"<title>\xC3\xA9</title>", "\u00E9"},
        {"<title>\xB3</title><meta http-equiv=Content-Type content='a; charset=ISO-8859-2'>",
         "\u0142"},
        {"<title>\xE9</title><meta charset=utf-16le>", "\u00E9"},
        {wide, "\u00E9"},
        {"<title>&eacute;&#xe9;&#233;&#150;&#0;&#1114112;&nope;&amp</title>",
         "\u00E9\u00E9\u00E9\u2013\uFFFD&nope;&amp"},
        {"<html><style><title>A</title></style><svg><title>B</title>", ""},
        {"<html a='<title>A</title>' b = \"x>\"c><title>C</TITLE >", "C"},
        {"<html><title>A", ""},
    };
    for (const auto& [page, title] : titles) {
        EXPECT_EQ(pageText(page, Attribute::kMDItemTitle), title) << page;
    }
    EXPECT_EQ(pageText("<meta name=author content='A'><meta name=author content='B; C'>"
                       "<meta name=dc.creator content=D>",
                       Attribute::kMDItemAuthors),
              "A|B|C|");
    MemoryInput text("no page, a < b");
    EXPECT_FALSE(webPageIndex(text));
}

TEST(DocumentMessage, DecodesHeadersAndNamesPeople) {
    const std::pair<std::string, std::string> subjects[] = {
        {"=?UTF-8?q?=E2=82?= \r\n =?utf-8?Q?=AC_?=x", "\u20AC x"},
        {"a =?iso-8859-2*pl?B?sw==?= b =?us-ascii?Q?c?= =?x", "a \u0142 b c =?x"},
        {"=?iso-2022-jp?B?GyRCRnwbKEI=?= \xE9", "\u65E5 \u00E9"},
        {"=?utf-8?X?a?= =?utf-8?Q?a b?=", "=?utf-8?X?a?= =?utf-8?Q?a b?="},
    };
    for (const auto& [header, subject] : subjects) {
        EXPECT_EQ(messageText("Subject: " + header, Attribute::kMDItemTitle), subject);
    }
    const std::pair<std::string, std::string> people[] = {
        {"\"B, \\\"A\\\"\" <a@b>, c@d (E (F)\\)), <g@h>", "B, \"A\"|E (F))|g@h|"},
        {"undisclosed-recipients:;, Us: a@b, C <c@d>;", "a@b|C|"},
        {"=?utf-8?Q?A,_B?= <a@b>,, ,(only a remark), D <", "A, B|D|"},
    };
    for (const auto& [header, names] : people) {
        EXPECT_EQ(messageText("to: " + header + "\nCC : z@z", Attribute::kMDItemParticipants),
                  names + "z@z|");
    }
    for (const std::string text : {"a: b\nc: d\n", "From: a\n", "", "no headers"}) {
        MemoryInput input(text);
        EXPECT_FALSE(messageIndex(input));
    }
}

TEST(DocumentMessage, UnderstandsOldDates) {
    const std::pair<std::string, std::string> dates[] = {
        {"Thu, 29 Feb 2024 2:30:15 -0500 (a (b))", "2024-02-29T02:30:15-05:00"},
        {"1 january 99 12:30 EST", "1999-01-01T12:30-05:00"},
        {"1 Jan 05 12:30:00 -0000", "2005-01-01T12:30:00Z"},
        {"1 Jan 105 12:30:00 X", "2005-01-01T12:30:00"},
        {"30 Feb 2024 12:30:00 GMT", ""},
        {"Thu Feb 29 2024", ""},
    };
    for (const auto& [text, date] : dates) EXPECT_EQ(messageDate(text), date) << text;
}

}  // namespace
}  // namespace marquell::helpers
