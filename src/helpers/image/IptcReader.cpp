// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/IptcReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/image/DecodedText.h"
#include "helpers/image/IptcBlock.h"
#include "platform/ImageProperties.h"
#include "platform/Utf8.h"

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

/// The declared character set, as the escape sequences of ISO 2022 name it. Without one that is
/// known here, all texts together show whether they are UTF-8.
Charset charsetOf(std::string_view block) {
    constexpr std::array<std::pair<std::string_view, Charset>, 3> sequences = {{
        {"\x1B%G", Charset::utf8},
        {"\x1B-A", Charset::windows1252},
        {"\x1B.A", Charset::windows1252},
    }};
    std::optional<Charset> declared;
    bool isUtf8 = true;
    forEachDataSet(block, [&](std::uint8_t record, std::uint8_t dataSet, std::string_view bytes) {
        if (record == envelopeRecord && dataSet == codedCharacterSet) {
            const auto* const sequence =
                std::find_if(sequences.begin(), sequences.end(),
                             [bytes](const auto& row) { return row.first == bytes; });
            if (sequence != sequences.end()) declared = sequence->second;
        }
        isUtf8 = isUtf8 && (record != applicationRecord || platform::isValidUtf8(bytes));
    });
    return declared.value_or(isUtf8 ? Charset::utf8 : Charset::windows1252);
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
