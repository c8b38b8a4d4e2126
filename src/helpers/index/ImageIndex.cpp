// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "helpers/common/IndexProperties.h"
#include "helpers/common/TagDate.h"
#include "helpers/common/TextList.h"
#include "helpers/documents/DocumentText.h"
#include "helpers/documents/MessageDate.h"
#include "helpers/image/EmbeddedTexts.h"
#include "helpers/image/ImageKind.h"
#include "helpers/image/ImageReader.h"
#include "helpers/image/PsdLayers.h"
#include "helpers/index/IndexReaders.h"
#include "platform/ImageProperties.h"
#include "platform/NumberText.h"

namespace marquell::helpers {
namespace {

using Attribute = platform::IndexAttribute;
using Key = platform::ImagePropertyKey;
using platform::PropertyDictionary;

const platform::PropertyValue* valueOf(const PropertyDictionary& image, Key key) {
    const auto found = image.find(static_cast<platform::PropertyKey>(key));
    return found == image.end() ? nullptr : &found->second;
}

/// A list of one for a text; a number as text.
std::vector<std::string> textsOf(const PropertyDictionary& image, Key key) {
    const auto* value = valueOf(image, key);
    if (value == nullptr) return {};
    if (const auto* texts = std::get_if<std::vector<std::string>>(value)) return *texts;
    if (const auto* text = std::get_if<std::string>(value)) return {*text};
    if (const auto* number = std::get_if<double>(value)) return {platform::numberText(*number)};
    return {};
}

std::string textOf(const PropertyDictionary& image, Key key) {
    std::vector<std::string> texts = textsOf(image, key);
    return texts.empty() ? std::string() : std::move(texts.front());
}

std::optional<double> numberOf(const PropertyDictionary& image, Key key) {
    const auto* value = valueOf(image, key);
    const auto* number = value == nullptr ? nullptr : std::get_if<double>(value);
    return number == nullptr ? std::nullopt : std::optional(*number);
}

// Where an attribute has several rows, the first that the image has counts.
constexpr std::array<std::pair<Attribute, Key>, 26> textRows = {{
    {Attribute::kMDItemTitle, Key::kCGImagePropertyIPTCObjectName},
    {Attribute::kMDItemTitle, Key::kCGImagePropertyTIFFXPTitle},
    {Attribute::kMDItemHeadline, Key::kCGImagePropertyIPTCHeadline},
    {Attribute::kMDItemDescription, Key::kCGImagePropertyIPTCCaptionAbstract},
    {Attribute::kMDItemDescription, Key::kCGImagePropertyTIFFImageDescription},
    {Attribute::kMDItemCopyright, Key::kCGImagePropertyIPTCCopyrightNotice},
    {Attribute::kMDItemCopyright, Key::kCGImagePropertyTIFFCopyright},
    {Attribute::kMDItemComment, Key::kCGImagePropertyExifUserComment},
    {Attribute::kMDItemComment, Key::kCGImagePropertyTIFFXPComment},
    {Attribute::kMDItemInstructions, Key::kCGImagePropertyIPTCSpecialInstructions},
    {Attribute::kMDItemCity, Key::kCGImagePropertyIPTCCity},
    {Attribute::kMDItemStateOrProvince, Key::kCGImagePropertyIPTCProvinceState},
    {Attribute::kMDItemCountry, Key::kCGImagePropertyIPTCCountryPrimaryLocationName},
    {Attribute::kMDItemCountry, Key::kCGImagePropertyIPTCCountryPrimaryLocationCode},
    {Attribute::kMDItemNamedLocation, Key::kCGImagePropertyIPTCSubLocation},
    {Attribute::kMDItemNamedLocation, Key::kCGImagePropertyIPTCContentLocationName},
    {Attribute::kMDItemNamedLocation, Key::kCGImagePropertyGPSAreaInformation},
    {Attribute::kMDItemAcquisitionMake, Key::kCGImagePropertyTIFFMake},
    {Attribute::kMDItemAcquisitionModel, Key::kCGImagePropertyTIFFModel},
    {Attribute::kMDItemLensModel, Key::kCGImagePropertyExifLensModel},
    {Attribute::kMDItemProfileName, Key::kCGImagePropertyProfileName},
    {Attribute::kMDItemColorSpace, Key::kCGImagePropertyColorModel},
    {Attribute::kMDItemEXIFVersion, Key::kCGImagePropertyExifVersion},
    {Attribute::kMDItemEXIFGPSVersion, Key::kCGImagePropertyGPSVersion},
    {Attribute::kMDItemGPSTrack, Key::kCGImagePropertyGPSTrack},
    {Attribute::kMDItemTimestamp, Key::kCGImagePropertyGPSTimeStamp},
}};

constexpr std::array<std::pair<Attribute, Key>, 4> listRows = {{
    {Attribute::kMDItemKeywords, Key::kCGImagePropertyIPTCKeywords},
    {Attribute::kMDItemAuthors, Key::kCGImagePropertyIPTCByline},
    {Attribute::kMDItemEditors, Key::kCGImagePropertyIPTCWriterEditor},
    {Attribute::kMDItemParticipants, Key::kCGImagePropertyIPTCExtPersonInImage},
}};

/// Fields of one text that is a list with semicolons.
constexpr std::array<std::pair<Attribute, Key>, 3> splitRows = {{
    {Attribute::kMDItemKeywords, Key::kCGImagePropertyTIFFXPKeywords},
    {Attribute::kMDItemAuthors, Key::kCGImagePropertyTIFFArtist},
    {Attribute::kMDItemAuthors, Key::kCGImagePropertyTIFFXPAuthor},
}};

constexpr std::array<std::pair<Attribute, Key>, 13> numberRows = {{
    {Attribute::kMDItemPixelHeight, Key::kCGImagePropertyPixelHeight},
    {Attribute::kMDItemPixelWidth, Key::kCGImagePropertyPixelWidth},
    {Attribute::kMDItemResolutionWidthDPI, Key::kCGImagePropertyDPIWidth},
    {Attribute::kMDItemResolutionHeightDPI, Key::kCGImagePropertyDPIHeight},
    {Attribute::kMDItemBitsPerSample, Key::kCGImagePropertyDepth},
    {Attribute::kMDItemImageDirection, Key::kCGImagePropertyGPSImgDirection},
    {Attribute::kMDItemExposureProgram, Key::kCGImagePropertyExifExposureProgram},
    {Attribute::kMDItemFNumber, Key::kCGImagePropertyExifFNumber},
    {Attribute::kMDItemISOSpeed, Key::kCGImagePropertyExifISOSpeedRatings},
    {Attribute::kMDItemISOSpeed, Key::kCGImagePropertyExifISOSpeed},
    {Attribute::kMDItemFocalLength, Key::kCGImagePropertyExifFocalLength},
    {Attribute::kMDItemAperture, Key::kCGImagePropertyExifApertureValue},
    {Attribute::kMDItemExposureTimeSeconds, Key::kCGImagePropertyExifExposureTime},
}};

/// A moment and what belongs to it.
struct DateRow {
    Attribute attribute;
    Key moment;
    Key fraction;
    Key zone;
};
constexpr std::array<DateRow, 3> dateRows = {{
    {Attribute::kMDItemContentCreationDate, Key::kCGImagePropertyExifDateTimeOriginal,
     Key::kCGImagePropertyExifSubsecTimeOriginal, Key::kCGImagePropertyExifOffsetTimeOriginal},
    {Attribute::kMDItemContentCreationDate, Key::kCGImagePropertyExifDateTimeDigitized,
     Key::kCGImagePropertyExifSubsecTimeDigitized, Key::kCGImagePropertyExifOffsetTimeDigitized},
    {Attribute::kMDItemContentModificationDate, Key::kCGImagePropertyTIFFDateTime,
     Key::kCGImagePropertyExifSubsecTime, Key::kCGImagePropertyExifOffsetTime},
}};

// Some programs end texts with a line break, which would split the lines of a list.

void addTrimmed(PropertyDictionary& index, Attribute attribute, std::string_view text) {
    addText(index, attribute, std::string(trimmed(text)));
}

void addTrimmed(PropertyDictionary& index, Attribute attribute, std::vector<std::string> texts) {
    for (std::string& text : texts) text = trimmed(text);
    addTexts(index, attribute, std::move(texts));
}

bool isDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Whether a text has digits where `form` has "d", and else the same characters.
bool hasForm(std::string_view text, std::string_view form) {
    return std::ranges::equal(text, form, [](char character, char expected) {
        return expected == 'd' ? character >= '0' && character <= '9' : character == expected;
    });
}

/// A camera's moment as ISO 8601; empty if it is none, such as one of blanks.
std::string cameraDate(const PropertyDictionary& image, const DateRow& row) {
    std::string moment = isoDate(textOf(image, row.moment));
    if (!hasForm(moment, "dddd-dd-ddTdd:dd:dd")) return moment;
    const std::string fraction = textOf(image, row.fraction);
    if (isDigits(fraction)) moment += '.' + fraction;
    const std::string zone = textOf(image, row.zone);
    if (hasForm(zone, "+dd:dd") || hasForm(zone, "-dd:dd")) moment += zone;
    return moment;
}

/// The day of IPTC, with its time if that is there.
std::string iptcDate(const PropertyDictionary& image) {
    const std::string day = textOf(image, Key::kCGImagePropertyIPTCDateCreated);
    if (!hasForm(day, "dddddddd")) return {};
    std::string date = day.substr(0, 4) + '-' + day.substr(4, 2) + '-' + day.substr(6);
    const std::string time = textOf(image, Key::kCGImagePropertyIPTCTimeCreated);
    if (!hasForm(time.substr(0, 6), "dddddd")) return date;
    date += 'T' + time.substr(0, 2) + ':' + time.substr(2, 2) + ':' + time.substr(4, 2);
    const std::string zone = time.substr(6);
    return hasForm(zone, "+dddd") || hasForm(zone, "-dddd") ? date + zone : date;
}

void addDates(PropertyDictionary& index, const PropertyDictionary& image) {
    for (const DateRow& row : dateRows) addText(index, row.attribute, cameraDate(image, row));
    addText(index, Attribute::kMDItemContentCreationDate, iptcDate(image));
}

std::optional<double> signedBy(std::optional<double> number, bool isNegative) {
    return number && isNegative ? -*number : number;
}

std::optional<double> kilometresPerHour(const PropertyDictionary& image) {
    const auto speed = numberOf(image, Key::kCGImagePropertyGPSSpeed);
    if (!speed) return std::nullopt;
    const std::string unit = textOf(image, Key::kCGImagePropertyGPSSpeedRef);
    constexpr double kilometresPerMile = 1.609344;
    constexpr double kilometresPerKnot = 1.852;
    return *speed * (unit == "M" ? kilometresPerMile : unit == "N" ? kilometresPerKnot : 1);
}

void addPlace(PropertyDictionary& index, const PropertyDictionary& image) {
    addNumber(index, Attribute::kMDItemLatitude,
              signedBy(numberOf(image, Key::kCGImagePropertyGPSLatitude),
                       textOf(image, Key::kCGImagePropertyGPSLatitudeRef) == "S"));
    addNumber(index, Attribute::kMDItemLongitude,
              signedBy(numberOf(image, Key::kCGImagePropertyGPSLongitude),
                       textOf(image, Key::kCGImagePropertyGPSLongitudeRef) == "W"));
    constexpr double belowSeaLevel = 1;
    addNumber(index, Attribute::kMDItemAltitude,
              signedBy(numberOf(image, Key::kCGImagePropertyGPSAltitude),
                       numberOf(image, Key::kCGImagePropertyGPSAltitudeRef) == belowSeaLevel));
    addNumber(index, Attribute::kMDItemSpeed, kilometresPerHour(image));
}

void addEmbedded(PropertyDictionary& index, const EmbeddedTexts& texts) {
    addTrimmed(index, Attribute::kMDItemTitle, texts.title);
    addTrimmed(index, Attribute::kMDItemAuthors, std::vector{texts.author});
    addTrimmed(index, Attribute::kMDItemDescription, texts.description);
    addTrimmed(index, Attribute::kMDItemCopyright, texts.copyright);
    addTrimmed(index, Attribute::kMDItemComment, texts.comment);
    addText(index, Attribute::kMDItemContentCreationDate, isoDate(texts.creationTime));
    // What PNG itself recommends.
    addText(index, Attribute::kMDItemContentCreationDate, messageDate(texts.creationTime));
    addText(index, Attribute::kMDItemContentModificationDate, texts.modificationTime);
}

void addFields(PropertyDictionary& index, const PropertyDictionary& image) {
    for (const auto& [attribute, key] : textRows) addTrimmed(index, attribute, textOf(image, key));
    for (const auto& [attribute, key] : listRows) addTrimmed(index, attribute, textsOf(image, key));
    for (const auto& [attribute, key] : splitRows) {
        addTexts(index, attribute, listedTexts(textOf(image, key), ";"));
    }
    for (const auto& [attribute, key] : numberRows) {
        addNumber(index, attribute, numberOf(image, key));
    }
    addPlace(index, image);
    addDates(index, image);
}

/// What XMP has in place of EXIF fields, by the keys of those.
PropertyDictionary xmpFields(const PropertyDictionary& image) {
    PropertyDictionary fields;
    for (auto field = image.lower_bound(platform::xmpKeys); field != image.end(); ++field) {
        fields.emplace(static_cast<platform::PropertyKey>(field->first - platform::xmpKeys),
                       field->second);
    }
    return fields;
}

}  // namespace

std::optional<PropertyDictionary> imageIndex(Input& input, std::string_view extension) {
    const auto image = readImage(input, extension);
    if (!image) return std::nullopt;
    PropertyDictionary index;
    addFields(index, *image);
    addFields(index, xmpFields(*image));
    const auto width = numberOf(*image, Key::kCGImagePropertyPixelWidth);
    const auto height = numberOf(*image, Key::kCGImagePropertyPixelHeight);
    if (width && height) addNumber(index, Attribute::kMDItemPixelCount, *width * *height);
    addEmbedded(index, readEmbeddedTexts(input, imageKindOf(input, extension)));
    addTexts(index, Attribute::kMDItemLayerNames, readPsdLayerNames(input));
    return index;
}

}  // namespace marquell::helpers
