// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "helpers/Bytes.h"
#include "helpers/SampleImages.h"
#include "helpers/image/ImageReader.h"
#include "helpers/index/IndexReaders.h"
#include "platform/ImageProperties.h"
#include "platform/IndexAttributes.h"
#include "platform/NumberText.h"

namespace marquell::helpers {
namespace {

using namespace std::string_literals;
using enum platform::IndexAttribute;
using Texts = std::vector<std::string>;

/// "" if there is no value; of a list the first member.
std::string valueOf(const std::string& bytes, platform::IndexAttribute attribute) {
    MemoryInput input(bytes);
    const auto index = imageIndex(input, "");
    const auto key = static_cast<platform::PropertyKey>(attribute);
    if (!index || !index->contains(key)) return {};
    const platform::PropertyValue& value = index->at(key);
    if (const auto* number = std::get_if<double>(&value)) return platform::numberText(*number);
    if (const auto* list = std::get_if<Texts>(&value)) return list->front();
    return std::get<std::string>(value);
}

std::string png(const std::string& chunks) {
    return "\x89PNG\r\n\x1A\n" + pngChunk("IHDR", big(30, 4) + big(20, 4) + "\x08\x02" + zeros(3)) +
           chunks;
}

std::string withXmp(const std::string& elements) {
    return png(pngChunk("iTXt", "XML:com.adobe.xmp"s + zeros(5) +
                                    "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-"
                                    "ns#'><rdf:Description xmlns:e='http://ns.adobe.com/exif/1.0/' "
                                    "xmlns:t='http://ns.adobe.com/tiff/1.0/' "
                                    "xmlns:x='http://cipa.jp/exif/1.0/' "
                                    "xmlns:a='http://ns.adobe.com/exif/1.0/aux/'>" +
                                    elements + "</rdf:Description></rdf:RDF>"));
}

TEST(ImageIndex, TakesFromXmpWhatExifLacks) {
    struct Row {
        std::string element;
        std::string text;
        platform::IndexAttribute attribute;
        std::string value;
    };
    for (const auto& [element, text, attribute, value] : {
             Row{"t:Make", " Me\n", kMDItemAcquisitionMake, "Me"},
             {"x:LensModel", "L", kMDItemLensModel, "L"},
             {"a:Lens", "L", kMDItemLensModel, "L"},
             {"e:FNumber", "28/10", kMDItemFNumber, "2.8"},
             {"e:FNumber", "28/0", kMDItemFNumber, ""},
             {"e:FNumber", "2.8f", kMDItemFNumber, ""},
             {"e:FNumber", "99999999999/1", kMDItemFNumber, ""},
             {"e:ISOSpeedRatings", "<rdf:Seq><rdf:li>200</rdf:li></rdf:Seq>", kMDItemISOSpeed,
              "200"},
             {"x:PhotographicSensitivity", "200", kMDItemISOSpeed, "200"},
             {"e:ExifVersion", "0231", kMDItemEXIFVersion, "2.3.1"},
             {"e:GPSLatitude", "48,30.75S", kMDItemLatitude, "-48.5125"},
             {"e:GPSLongitude", "2,30,36E", kMDItemLongitude, "2.51"},
             {"e:GPSLongitude", "1.500000000000000001W", kMDItemLongitude, "-1.5"},
             {"e:GPSLatitude", "91,0N", kMDItemLatitude, ""},
             {"e:GPSLatitude", "48,,N,1", kMDItemLatitude, ""},
             {"e:GPSTimeStamp", "2024-02-29T12:30:15.5Z", kMDItemTimestamp, "12:30:15.5"},
             {"e:GPSTimeStamp", "2024-02-29T12:30:15+01:00", kMDItemTimestamp, ""},
             {"e:DateTimeOriginal", "2024-02-29T12:30:15.5+01:00", kMDItemContentCreationDate,
              "2024-02-29T12:30:15.5+01:00"},
         }) {
        const std::string bytes = withXmp("<" + element + ">" + text + "</" + element + ">");
        EXPECT_EQ(valueOf(bytes, attribute), value) << element << " " << text;
    }
    const std::string bytes = withXmp("<t:Make>Me</t:Make>");
    MemoryInput input(bytes);
    EXPECT_FALSE(readImage(input, "")->contains(
        static_cast<platform::PropertyKey>(platform::ImagePropertyKey::kCGImagePropertyTIFFMake)))
        << "what is of EXIF alone";
}

TEST(ImageIndex, UnpacksTextsOfPng) {
    const std::string packed = "\x78\x9C\x4B\x04\x00\x00\x62\x00\x62"s;  // "a"
    for (const auto& [type, content, title] : {std::tuple{"zTXt", "Title\0\0"s + packed, "a"},
                                               {"iTXt", "Title\0\1\0de\0Titel\0"s + packed, "a"},
                                               {"zTXt", "Title\0\0"s + packed.substr(0, 5), "a"},
                                               {"zTXt", "Title\0\0none"s, ""},
                                               {"zTXt", "Title\0"s, ""}}) {
        EXPECT_EQ(valueOf(png(pngChunk(type, content)), kMDItemTitle), title);
    }
    for (const auto& [text, date] :
         {std::pair{"Thu, 29 Feb 2024 12:30:15 GMT"s, "2024-02-29T12:30:15Z"},
          {"2024:02:29 12:30"s, "2024-02-29T12:30"},
          {"yesterday"s, ""}}) {
        EXPECT_EQ(
            valueOf(png(pngChunk("tEXt", "Creation Time\0"s + text)), kMDItemContentCreationDate),
            date);
    }
    EXPECT_EQ(valueOf(png(pngChunk("tIME", "\x07\xE8\x02\x1D\x0C\x1E\x0F"s)),
                      kMDItemContentModificationDate),
              "2024-02-29T12:30:15Z");
}

}  // namespace
}  // namespace marquell::helpers
