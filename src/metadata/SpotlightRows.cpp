// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include "metadata/SpotlightHelper.h"

namespace marquell::metadata {
namespace {

using Attribute = platform::IndexAttribute;
using StringRow = SpotlightHelper::StringValueRow;
using NumericRow = SpotlightHelper::NumericValueRow;
constexpr auto roundToOneDecimal = SpotlightHelper::RoundingPolicy::roundToOneDecimal;
constexpr auto dontRound = SpotlightHelper::RoundingPolicy::dontRound;

constexpr std::array<StringRow, 23> strings = {{
    {"copyright", Attribute::kMDItemCopyright},
    {"title", Attribute::kMDItemTitle},
    {"comment", Attribute::kMDItemComment},
    {"findercomment", Attribute::kMDItemFinderComment},
    {"version", Attribute::kMDItemVersion},
    {"colorspace", Attribute::kMDItemColorSpace},
    {"make", Attribute::kMDItemAcquisitionMake},
    {"model", Attribute::kMDItemAcquisitionModel},
    {"colorprofilename", Attribute::kMDItemProfileName},
    {"lensmodel", Attribute::kMDItemLensModel},
    {"headline", Attribute::kMDItemHeadline},
    {"album", Attribute::kMDItemAlbum},
    {"description", Attribute::kMDItemDescription},
    {"editorialInstructions", Attribute::kMDItemInstructions},
    {"city", Attribute::kMDItemCity},
    {"stateorprovince", Attribute::kMDItemStateOrProvince},
    {"country", Attribute::kMDItemCountry},
    {"namedlocation", Attribute::kMDItemNamedLocation},
    {"gpstrack", Attribute::kMDItemGPSTrack},
    {"exifgpsversion", Attribute::kMDItemEXIFGPSVersion},
    {"exifversion", Attribute::kMDItemEXIFVersion},
    {"contenttype", Attribute::kMDItemContentType},
    {"timestamp", Attribute::kMDItemTimestamp},
}};

constexpr std::array<StringRow, 8> stringLists = {{
    {"keywords", Attribute::kMDItemKeywords},
    {"authors", Attribute::kMDItemAuthors},
    {"participants", Attribute::kMDItemParticipants},
    {"editors", Attribute::kMDItemEditors},
    {"codecs", Attribute::kMDItemCodecs},
    {"wherefroms", Attribute::kMDItemWhereFroms},
    {"mediatypes", Attribute::kMDItemMediaTypes},
    {"layernames", Attribute::kMDItemLayerNames},
}};

constexpr std::array<NumericRow, 21> numbers = {{
    {"pixelheight", Attribute::kMDItemPixelHeight, dontRound},
    {"pixelwidth", Attribute::kMDItemPixelWidth, dontRound},
    {"pixelcount", Attribute::kMDItemPixelCount, dontRound},
    {"imagedirection", Attribute::kMDItemImageDirection, dontRound},
    {"longitude", Attribute::kMDItemLongitude, dontRound},
    {"latitude", Attribute::kMDItemLatitude, dontRound},
    {"altitude", Attribute::kMDItemAltitude, dontRound},
    {"speed", Attribute::kMDItemSpeed, dontRound},
    {"exposureprogram", Attribute::kMDItemExposureProgram, dontRound},
    {"fnumber", Attribute::kMDItemFNumber, dontRound},
    {"duration", Attribute::kMDItemDurationSeconds, roundToOneDecimal},
    {"isospeed", Attribute::kMDItemISOSpeed, dontRound},
    {"focallength", Attribute::kMDItemFocalLength, dontRound},
    {"aperature", Attribute::kMDItemAperture, dontRound},
    {"bitspersample", Attribute::kMDItemBitsPerSample, dontRound},
    {"exposuretimeseconds", Attribute::kMDItemExposureTimeSeconds, dontRound},
    {"resolutionwidthdpi", Attribute::kMDItemResolutionWidthDPI, dontRound},
    {"resolutionheightdpi", Attribute::kMDItemResolutionHeightDPI, dontRound},
    {"totalbitrate", Attribute::kMDItemTotalBitRate, dontRound},
    {"videobitrate", Attribute::kMDItemVideoBitRate, dontRound},
    {"audiobitrate", Attribute::kMDItemAudioBitRate, dontRound},
}};

constexpr std::array<StringRow, 4> dates = {{
    {"contentmodificationdate", Attribute::kMDItemContentModificationDate},
    {"contentcreationdate", Attribute::kMDItemContentCreationDate},
    {"dateadded", Attribute::kMDItemDateAdded},
    {"downloadDate", Attribute::kMDItemDownloadedDate},
}};

}  // namespace

std::span<const SpotlightHelper::StringValueRow> SpotlightHelper::allStringValues() {
    return strings;
}

std::span<const SpotlightHelper::StringValueRow> SpotlightHelper::allStringArrayValues() {
    return stringLists;
}

std::span<const SpotlightHelper::NumericValueRow> SpotlightHelper::allNumericValues() {
    return numbers;
}

std::span<const SpotlightHelper::StringValueRow> SpotlightHelper::allDateValues() { return dates; }

}  // namespace marquell::metadata
