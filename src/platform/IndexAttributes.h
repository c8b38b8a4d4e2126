// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace marquell::platform {

/// The attributes of a file that are the same for files of all types. A comment says what the value
/// is: a text unless it says otherwise. Dates travel as text of ISO 8601, with time and zone as far
/// as they are known ("2024", "2024-02-29T12:30:15.5+01:00"); without zone they are by the clock of
/// whoever reads them.
enum class IndexAttribute : std::uint16_t {
    kMDItemCopyright,
    kMDItemTitle,
    kMDItemComment,  ///< what the file itself has
    kMDItemFinderComment,
    kMDItemVersion,     ///< of the document
    kMDItemColorSpace,  ///< "RGB", "Gray", "CMYK", "Lab" or the like
    kMDItemAcquisitionMake,
    kMDItemAcquisitionModel,
    kMDItemProfileName,
    kMDItemLensModel,
    kMDItemHeadline,
    kMDItemAlbum,
    kMDItemDescription,
    kMDItemInstructions,
    kMDItemCity,
    kMDItemStateOrProvince,
    kMDItemCountry,
    kMDItemNamedLocation,
    kMDItemGPSTrack,  ///< degrees, as text
    kMDItemEXIFGPSVersion,
    kMDItemEXIFVersion,
    kMDItemContentType,
    kMDItemTimestamp,  ///< the GPS time of day in UTC
    kMDItemKeywords,   ///< list; so are the following up to layer names
    kMDItemAuthors,
    kMDItemParticipants,
    kMDItemEditors,
    kMDItemCodecs,
    kMDItemWhereFroms,
    kMDItemMediaTypes,  ///< "Sound", "Video", "Subtitles"
    kMDItemLayerNames,
    kMDItemPixelHeight,  ///< number; so are the following up to audio bit rate
    kMDItemPixelWidth,
    kMDItemPixelCount,
    kMDItemImageDirection,  ///< degrees
    kMDItemLongitude,       ///< degrees, west negative
    kMDItemLatitude,        ///< degrees, south negative
    kMDItemAltitude,        ///< metres
    kMDItemSpeed,           ///< kilometres per hour
    kMDItemExposureProgram,
    kMDItemFNumber,
    kMDItemDurationSeconds,
    kMDItemISOSpeed,
    kMDItemFocalLength,  ///< millimetres
    kMDItemAperture,     ///< APEX
    kMDItemBitsPerSample,
    kMDItemExposureTimeSeconds,
    kMDItemResolutionWidthDPI,
    kMDItemResolutionHeightDPI,
    kMDItemTotalBitRate,  ///< bits per second; so are the next two
    kMDItemVideoBitRate,
    kMDItemAudioBitRate,
    kMDItemContentModificationDate,  ///< date; so are the following
    kMDItemContentCreationDate,
    kMDItemDateAdded,
    kMDItemDownloadedDate,
};

}  // namespace marquell::platform
