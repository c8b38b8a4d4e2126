// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "helpers/streams/StreamReaders.h"
#include "platform/IndexAttributes.h"

namespace marquell::helpers {
namespace {

using platform::IndexAttribute;
using platform::PropertyDictionary;
using Texts = std::vector<std::string>;

/// A document with these entries of its information, and this XMP. It has no table of its objects,
/// so that they are searched for.
std::string document(const std::string& information, const std::string& properties = {}) {
    const std::string packet =
        "<x:xmpmeta><rdf:RDF><rdf:Description>" + properties + "</rdf:Description></rdf:RDF>";
    return "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R/Metadata 4 0 R>>endobj\n"
           "2 0 obj<</Type/Pages/Kids[]/Count 0>>endobj\n3 0 obj<<" +
           information + ">>endobj\n4 0 obj<</Length " + std::to_string(packet.size()) +
           ">>stream\n" + packet + "\nendstream endobj\ntrailer<</Root 1 0 R/Info 3 0 R>>\n";
}

std::optional<PropertyDictionary> read(const std::string& bytes) {
    prepareStreamReaders();
    MemoryInput input(bytes);
    return pdfIndex(input);
}

PropertyDictionary withVersion(IndexAttribute attribute, const platform::PropertyValue& value) {
    return {{static_cast<platform::PropertyKey>(IndexAttribute::kMDItemVersion), "1.4"},
            {static_cast<platform::PropertyKey>(attribute), value}};
}

TEST(PdfIndex, ReadsTheInformationInItsEncodings) {
    struct Row {
        std::string entry;
        IndexAttribute attribute;
        platform::PropertyValue value;
    };
    const Row rows[] = {
        {"/Title(K\\366ln \\204 \\(x\\))", IndexAttribute::kMDItemTitle, "K\u00F6ln \u2014 (x)"},
        {"/Title<FEFF004BF6>", IndexAttribute::kMDItemTitle, "K"},
        {"/Title<FEFF00D60416>", IndexAttribute::kMDItemTitle, "\u00D6\u0416"},
        {"/Title<EFBBBFC3A9>", IndexAttribute::kMDItemTitle, "\u00E9"},
        {"/Subject(x)", IndexAttribute::kMDItemDescription, "x"},
        {"/Author(Doe, J.; Roe)", IndexAttribute::kMDItemAuthors, Texts{"Doe, J.", "Roe"}},
        {"/Keywords( a,b;; c )", IndexAttribute::kMDItemKeywords, Texts{"a", "b", "c"}},
        {"/CreationDate(D:20240229123015+05'30')", IndexAttribute::kMDItemContentCreationDate,
         "2024-02-29T12:30:15+05:30"},
        {"/ModDate(D:202402291230)", IndexAttribute::kMDItemContentModificationDate,
         "2024-02-29T12:30:00"},
        {"/ModDate(20240229Z)", IndexAttribute::kMDItemContentModificationDate, "2024-02-29"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(document(row.entry)), withVersion(row.attribute, row.value)) << row.entry;
    }
}

TEST(PdfIndex, CompletesTheInformationFromXmp) {
    const std::string list = "<rdf:Seq><rdf:li>A</rdf:li><rdf:li>B</rdf:li></rdf:Seq>";
    const std::string texts =
        "<rdf:Alt><rdf:li xml:lang='de'>Eins</rdf:li><rdf:li xml:lang='x-default'>One</rdf:li>"
        "</rdf:Alt>";
    struct Row {
        std::string information;
        std::string property;
        IndexAttribute attribute;
        platform::PropertyValue value;
    };
    const Row rows[] = {
        {"", "<dc:title>" + texts + "</dc:title>", IndexAttribute::kMDItemTitle, "One"},
        {"/Title(Two)", "<dc:title>" + texts + "</dc:title>", IndexAttribute::kMDItemTitle, "Two"},
        {"", "<dc:rights>" + texts + "</dc:rights>", IndexAttribute::kMDItemCopyright, "One"},
        {"", "<dc:creator>" + list + "</dc:creator>", IndexAttribute::kMDItemAuthors,
         Texts{"A", "B"}},
        {"", "<dc:contributor>" + list + "</dc:contributor>", IndexAttribute::kMDItemEditors,
         Texts{"A", "B"}},
        {"", "<dc:description>&#xE9;</dc:description>", IndexAttribute::kMDItemDescription,
         "\u00E9"},
        {"", "<xmp:CreateDate>2024-02-29T12:30:15Z</xmp:CreateDate>",
         IndexAttribute::kMDItemContentCreationDate, "2024-02-29T12:30:15Z"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(read(document(row.information, row.property)),
                  withVersion(row.attribute, row.value))
            << row.property;
    }
}

TEST(PdfIndex, KeepsTheVersionOfWhatIsBroken) {
    const PropertyDictionary version = {
        {static_cast<platform::PropertyKey>(IndexAttribute::kMDItemVersion), "1.6"}};
    EXPECT_EQ(read("%PDF-1.6\nnothing else"), version);
    EXPECT_EQ(read("junk before %PDF-1.6"), version);
    std::string endless = "%PDF-1.6\n";  // each is read to the end of the file: hours
    for (int i = 0; i < 1'000'000; ++i) endless += "trailer<<\n";
    EXPECT_EQ(read(endless), version);
    EXPECT_EQ(read("%!PS-Adobe-3.0"), std::nullopt);
    EXPECT_EQ(read(""), std::nullopt);
}

TEST(StreamReaders, ReadTheirSamples) {
    prepareStreamReaders();
    EXPECT_TRUE(readsSampleStreams());
}

}  // namespace
}  // namespace marquell::helpers
