// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/IptcReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/common/DecodedText.h"
#include "helpers/image/IptcBlock.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using Key = platform::ImagePropertyKey;

constexpr std::uint8_t envelopeRecord = 1;
constexpr std::uint8_t codedCharacterSet = 90;
constexpr std::uint8_t applicationRecord = 2;

/// A data set of the application record.
struct Field {
    std::uint8_t dataSet;
    Key key;
};

constexpr std::array fields = {
    Field{3, Key::kCGImagePropertyIPTCObjectTypeReference},
    Field{4, Key::kCGImagePropertyIPTCObjectAttributeReference},
    Field{5, Key::kCGImagePropertyIPTCObjectName},
    Field{7, Key::kCGImagePropertyIPTCEditStatus},
    Field{8, Key::kCGImagePropertyIPTCEditorialUpdate},
    Field{10, Key::kCGImagePropertyIPTCUrgency},
    Field{12, Key::kCGImagePropertyIPTCSubjectReference},
    Field{15, Key::kCGImagePropertyIPTCCategory},
    Field{20, Key::kCGImagePropertyIPTCSupplementalCategory},
    Field{22, Key::kCGImagePropertyIPTCFixtureIdentifier},
    Field{25, Key::kCGImagePropertyIPTCKeywords},
    Field{26, Key::kCGImagePropertyIPTCContentLocationCode},
    Field{27, Key::kCGImagePropertyIPTCContentLocationName},
    Field{30, Key::kCGImagePropertyIPTCReleaseDate},
    Field{35, Key::kCGImagePropertyIPTCReleaseTime},
    Field{37, Key::kCGImagePropertyIPTCExpirationDate},
    Field{38, Key::kCGImagePropertyIPTCExpirationTime},
    Field{40, Key::kCGImagePropertyIPTCSpecialInstructions},
    Field{42, Key::kCGImagePropertyIPTCActionAdvised},
    Field{45, Key::kCGImagePropertyIPTCReferenceService},
    Field{47, Key::kCGImagePropertyIPTCReferenceDate},
    Field{50, Key::kCGImagePropertyIPTCReferenceNumber},
    Field{55, Key::kCGImagePropertyIPTCDateCreated},
    Field{60, Key::kCGImagePropertyIPTCTimeCreated},
    Field{62, Key::kCGImagePropertyIPTCDigitalCreationDate},
    Field{63, Key::kCGImagePropertyIPTCDigitalCreationTime},
    Field{65, Key::kCGImagePropertyIPTCOriginatingProgram},
    Field{70, Key::kCGImagePropertyIPTCProgramVersion},
    Field{75, Key::kCGImagePropertyIPTCObjectCycle},
    Field{80, Key::kCGImagePropertyIPTCByline},
    Field{85, Key::kCGImagePropertyIPTCBylineTitle},
    Field{90, Key::kCGImagePropertyIPTCCity},
    Field{92, Key::kCGImagePropertyIPTCSubLocation},
    Field{95, Key::kCGImagePropertyIPTCProvinceState},
    Field{100, Key::kCGImagePropertyIPTCCountryPrimaryLocationCode},
    Field{101, Key::kCGImagePropertyIPTCCountryPrimaryLocationName},
    Field{103, Key::kCGImagePropertyIPTCOriginalTransmissionReference},
    Field{105, Key::kCGImagePropertyIPTCHeadline},
    Field{110, Key::kCGImagePropertyIPTCCredit},
    Field{115, Key::kCGImagePropertyIPTCSource},
    Field{116, Key::kCGImagePropertyIPTCCopyrightNotice},
    Field{118, Key::kCGImagePropertyIPTCContact},
    Field{120, Key::kCGImagePropertyIPTCCaptionAbstract},
    Field{122, Key::kCGImagePropertyIPTCWriterEditor},
    Field{130, Key::kCGImagePropertyIPTCImageType},
    Field{131, Key::kCGImagePropertyIPTCImageOrientation},
    Field{135, Key::kCGImagePropertyIPTCLanguageIdentifier},
};

/// By its last character, an escape sequence of ISO 2022 that declares the character set.
struct Designation {
    char last;
    Charset charset;
};

// What declares UTF-8 is not to be found here: texts that keep to it are seen to.
constexpr std::array designations = {
    Designation{'A', Charset::windows1252}, Designation{'B', Charset::latin2},
    Designation{'C', Charset::latin3},      Designation{'D', Charset::latin4},
    Designation{'F', Charset::greek},       Designation{'G', Charset::arabic},
    Designation{'H', Charset::hebrew},      Designation{'L', Charset::cyrillic},
    Designation{'M', Charset::latin5},
};

/// Without a declaration that is known here each text shows for itself what it is.
Charset charsetOf(std::string_view block) {
    Charset charset = Charset::likely;
    forEachDataSet(block, [&](std::uint8_t record, std::uint8_t dataSet, std::string_view bytes) {
        if (record != envelopeRecord || dataSet != codedCharacterSet) return;
        // ESC, then "-" or "." for a set of 96 characters, then which.
        const bool isSet =
            bytes.size() == 3 && (bytes.starts_with("\x1B-") || bytes.starts_with("\x1B."));
        if (!isSet) return;
        for (const Designation& designation : designations) {
            if (bytes.back() == designation.last) charset = designation.charset;
        }
    });
    return charset;
}

}  // namespace

void addIptcProperties(platform::PropertyDictionary& properties, std::string_view block) {
    const Charset charset = charsetOf(block);
    std::map<Key, std::vector<std::string>> texts;
    forEachDataSet(block, [&](std::uint8_t record, std::uint8_t dataSet, std::string_view bytes) {
        if (record != applicationRecord) return;
        const auto* const field =
            std::find_if(fields.begin(), fields.end(),
                         [dataSet](const Field& row) { return row.dataSet == dataSet; });
        if (field == fields.end()) return;
        std::string text = decodedText(bytes, charset);
        if (!text.empty()) texts[field->key].push_back(std::move(text));
    });
    for (auto& [key, list] : texts) {
        const auto number = static_cast<platform::PropertyKey>(key);
        if (list.size() == 1) {
            properties.emplace(number, std::move(list.front()));
        } else {
            properties.emplace(number, std::move(list));
        }
    }
}

}  // namespace marquell::helpers
