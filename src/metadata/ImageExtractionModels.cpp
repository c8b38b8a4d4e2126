// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include "metadata/ImageIOHelper.h"

namespace marquell::metadata {
namespace {

using Instruction = ImageIOHelper::Instruction;
using Key = platform::ImagePropertyKey;
using enum Transformation;

constexpr std::array imageModel = {
    Instruction{Key::kCGImagePropertyPixelHeight, "image_pixel_height", integer},
    Instruction{Key::kCGImagePropertyPixelWidth, "image_pixel_width", integer},
    Instruction{Key::kCGImagePropertyDPIWidth, "image_dpi_width", integer},
    Instruction{Key::kCGImagePropertyDPIHeight, "image_dpi_height", integer},
    Instruction{Key::kCGImagePropertyDepth, "image_depth", integer},
    Instruction{Key::kCGImagePropertyProfileName, "image_profile_name", string},
};

constexpr std::array tiffModel = {
    Instruction{Key::kCGImagePropertyTIFFMake, "exif_make", string},
    Instruction{Key::kCGImagePropertyTIFFModel, "exif_model", string},
};

constexpr std::array exifModel = {
    Instruction{Key::kCGImagePropertyExifDateTimeOriginal, "exif_date_time_original", date},
    Instruction{Key::kCGImagePropertyExifDateTimeDigitized, "exif_date_time_digitized", date},
    Instruction{Key::kCGImagePropertyExifSubjectDistance, "exif_subject_distance", string},
    Instruction{Key::kCGImagePropertyExifMeteringMode, "exif_metering_mode", string},
    Instruction{Key::kCGImagePropertyExifLightSource, "exif_light_source", string},
    Instruction{Key::kCGImagePropertyExifFlash, "exif_flash", string},
    Instruction{Key::kCGImagePropertyExifFocalLength, "exif_focal_length", string},
    Instruction{Key::kCGImagePropertyExifMakerNote, "exif_maker_note", string},
    Instruction{Key::kCGImagePropertyExifUserComment, "exif_user_comment", string},
    Instruction{Key::kCGImagePropertyExifSubsecTime, "exif_subsec_time", string},
    Instruction{Key::kCGImagePropertyExifSubsecTimeOriginal, "exif_subsec_time_original", string},
    Instruction{Key::kCGImagePropertyExifSubsecTimeDigitized, "exif_subsec_time_digitized", string},
    Instruction{Key::kCGImagePropertyExifColorSpace, "exif_color_space", string},
    Instruction{Key::kCGImagePropertyExifPixelXDimension, "exif_pixel_x_dimension", string},
    Instruction{Key::kCGImagePropertyExifPixelYDimension, "exif_pixel_y_dimension", string},
    Instruction{Key::kCGImagePropertyExifSubjectLocation, "exif_subject_location", string},
    Instruction{Key::kCGImagePropertyExifSceneType, "exif_scene_type", string},
    Instruction{Key::kCGImagePropertyExifExposureMode, "exif_exposure_mode", string},
    Instruction{Key::kCGImagePropertyExifWhiteBalance, "exif_white_balance", string},
    Instruction{Key::kCGImagePropertyExifDigitalZoomRatio, "exif_digital_zoom_ratio", string},
    Instruction{Key::kCGImagePropertyExifFocalLenIn35mmFilm, "exif_focal_length_in_35mm_film",
                string},
    Instruction{Key::kCGImagePropertyExifSceneCaptureType, "exif_scene_capture_type", string},
    Instruction{Key::kCGImagePropertyExifContrast, "exif_contrast", string},
    Instruction{Key::kCGImagePropertyExifSaturation, "exif_saturation", string},
    Instruction{Key::kCGImagePropertyExifSharpness, "exif_sharpness", string},
    Instruction{Key::kCGImagePropertyExifDeviceSettingDescription,
                "exif_device_setting_description", string},
    Instruction{Key::kCGImagePropertyExifSubjectDistRange, "exif_subject_distance_range", string},
    Instruction{Key::kCGImagePropertyExifImageUniqueID, "exif_image_unique_id", string},
    Instruction{Key::kCGImagePropertyExifCameraOwnerName, "exif_camera_owner_type", string},
    Instruction{Key::kCGImagePropertyExifBodySerialNumber, "exif_body_serial_number", string},
    Instruction{Key::kCGImagePropertyExifLensSpecification, "exif_lens_specification", string},
    Instruction{Key::kCGImagePropertyExifLensMake, "exif_lens_make", string},
    Instruction{Key::kCGImagePropertyExifLensModel, "exif_lens_model", string},
    Instruction{Key::kCGImagePropertyExifLensSerialNumber, "exif_lens_serial_number", string},
    Instruction{Key::kCGImagePropertyExifGamma, "exif_gamma", string},
    Instruction{Key::kCGImagePropertyExifExposureTime, "exif_exposure_time", string},
    Instruction{Key::kCGImagePropertyExifFNumber, "exif_f_number", string},
    Instruction{Key::kCGImagePropertyExifExposureProgram, "exif_exposure_program", string},
    Instruction{Key::kCGImagePropertyExifShutterSpeedValue, "exif_shutter_speed", string},
    Instruction{Key::kCGImagePropertyExifApertureValue, "exif_aperature", string},
    Instruction{Key::kCGImagePropertyExifBrightnessValue, "exif_brightness", string},
    Instruction{Key::kCGImagePropertyExifISOSpeedRatings, "exif_iso_speed_ratings", string},
    Instruction{Key::kCGImagePropertyExifISOSpeed, "exif_iso_speed", string},
    Instruction{Key::kCGImagePropertyExifVersion, "exif_version", string},
};

constexpr std::array gpsModel = {
    Instruction{Key::kCGImagePropertyGPSVersion, "gps_version", string},
    Instruction{Key::kCGImagePropertyGPSLatitudeRef, "gps_latitude_ref", string},
    Instruction{Key::kCGImagePropertyGPSLatitude, "gps_latitude", string},
    Instruction{Key::kCGImagePropertyGPSLongitudeRef, "gps_longitude_ref", string},
    Instruction{Key::kCGImagePropertyGPSLongitude, "gps_longitude", string},
    Instruction{Key::kCGImagePropertyGPSAltitudeRef, "gps_altitude_ref", string},
    Instruction{Key::kCGImagePropertyGPSAltitude, "gps_altitude", string},
    Instruction{Key::kCGImagePropertyGPSTimeStamp, "gps_time_stamp", string},
    Instruction{Key::kCGImagePropertyGPSSatellites, "gps_satellites", string},
    Instruction{Key::kCGImagePropertyGPSStatus, "gps_status", string},
    Instruction{Key::kCGImagePropertyGPSMeasureMode, "gps_measure_mode", string},
    Instruction{Key::kCGImagePropertyGPSDOP, "gps_dop", string},
    Instruction{Key::kCGImagePropertyGPSSpeedRef, "gps_speed_ref", string},
    Instruction{Key::kCGImagePropertyGPSSpeed, "gps_speed", string},
    Instruction{Key::kCGImagePropertyGPSTrackRef, "gps_track_ref", string},
    Instruction{Key::kCGImagePropertyGPSTrack, "gps_track", string},
    Instruction{Key::kCGImagePropertyGPSImgDirectionRef, "gps_image_direction_ref", string},
    Instruction{Key::kCGImagePropertyGPSImgDirection, "gps_image_direction", string},
    Instruction{Key::kCGImagePropertyGPSMapDatum, "gps_map_datum", string},
    Instruction{Key::kCGImagePropertyGPSDestLatitudeRef, "gps_destination_latitude_ref", string},
    Instruction{Key::kCGImagePropertyGPSDestLatitude, "gps_destination_latitude", string},
    Instruction{Key::kCGImagePropertyGPSDestLongitudeRef, "gps_destination_longitude_ref", string},
    Instruction{Key::kCGImagePropertyGPSDestLongitude, "gps_destination_longitude", string},
    Instruction{Key::kCGImagePropertyGPSDestBearingRef, "gps_destination_bearing_ref", string},
    Instruction{Key::kCGImagePropertyGPSDestBearing, "gps_destination_bearing", string},
    Instruction{Key::kCGImagePropertyGPSDestDistanceRef, "gps_distance_ref", string},
    Instruction{Key::kCGImagePropertyGPSDestDistance, "gps_distance", string},
    Instruction{Key::kCGImagePropertyGPSProcessingMethod, "gps_processing_method", string},
    Instruction{Key::kCGImagePropertyGPSAreaInformation, "gps_area_information", string},
    Instruction{Key::kCGImagePropertyGPSDateStamp, "gps_date_stamp", string},
    Instruction{Key::kCGImagePropertyGPSDifferental, "gps_differential", string},
    Instruction{Key::kCGImagePropertyGPSHPositioningError, "gps_positioning_error", string},
};

constexpr std::array iptcModel = {
    Instruction{Key::kCGImagePropertyIPTCObjectTypeReference, "iptc_object_type_reference", string},
    Instruction{Key::kCGImagePropertyIPTCObjectAttributeReference, "iptc_attribute_reference",
                string},
    Instruction{Key::kCGImagePropertyIPTCObjectName, "iptc_object_name", string},
    Instruction{Key::kCGImagePropertyIPTCEditStatus, "iptc_edit_status", string},
    Instruction{Key::kCGImagePropertyIPTCEditorialUpdate, "iptc_editorial_update", string},
    Instruction{Key::kCGImagePropertyIPTCUrgency, "iptc_urgency", string},
    Instruction{Key::kCGImagePropertyIPTCSubjectReference, "iptc_subject_reference", string},
    Instruction{Key::kCGImagePropertyIPTCCategory, "iptc_category", string},
    Instruction{Key::kCGImagePropertyIPTCSupplementalCategory, "iptc_supplemental_category",
                string},
    Instruction{Key::kCGImagePropertyIPTCFixtureIdentifier, "iptc_fixture_identifier", string},
    Instruction{Key::kCGImagePropertyIPTCKeywords, "iptc_keywords", string},
    Instruction{Key::kCGImagePropertyIPTCContentLocationCode, "iptc_content_location_code", string},
    Instruction{Key::kCGImagePropertyIPTCContentLocationName, "iptc_content_location_name", string},
    Instruction{Key::kCGImagePropertyIPTCReleaseDate, "iptc_release_date", string},
    Instruction{Key::kCGImagePropertyIPTCReleaseTime, "iptc_release_time", string},
    Instruction{Key::kCGImagePropertyIPTCExpirationDate, "iptc_expiration_date", string},
    Instruction{Key::kCGImagePropertyIPTCExpirationTime, "iptc_expiration_time", string},
    Instruction{Key::kCGImagePropertyIPTCSpecialInstructions, "iptc_special_instructions", string},
    Instruction{Key::kCGImagePropertyIPTCActionAdvised, "iptc_action_advised", string},
    Instruction{Key::kCGImagePropertyIPTCReferenceService, "iptc_reference_service", string},
    Instruction{Key::kCGImagePropertyIPTCReferenceDate, "iptc_reference_date", string},
    Instruction{Key::kCGImagePropertyIPTCReferenceNumber, "iptc_reference_number", string},
    Instruction{Key::kCGImagePropertyIPTCDateCreated, "iptc_date_created", string},
    Instruction{Key::kCGImagePropertyIPTCTimeCreated, "iptc_time_created", string},
    Instruction{Key::kCGImagePropertyIPTCDigitalCreationDate, "iptc_digital_creation_date", string},
    Instruction{Key::kCGImagePropertyIPTCDigitalCreationTime, "iptc_digital_creation_time", string},
    Instruction{Key::kCGImagePropertyIPTCOriginatingProgram, "iptc_originating_program", string},
    Instruction{Key::kCGImagePropertyIPTCProgramVersion, "iptc_program_version", string},
    Instruction{Key::kCGImagePropertyIPTCObjectCycle, "iptc_object_cycle", string},
    Instruction{Key::kCGImagePropertyIPTCByline, "iptc_creator", string},
    Instruction{Key::kCGImagePropertyIPTCBylineTitle, "iptc_creator_job_title", string},
    Instruction{Key::kCGImagePropertyIPTCCity, "iptc_city", string},
    Instruction{Key::kCGImagePropertyIPTCSubLocation, "iptc_sub_location", string},
    Instruction{Key::kCGImagePropertyIPTCProvinceState, "iptc_province_state", string},
    Instruction{Key::kCGImagePropertyIPTCCountryPrimaryLocationCode,
                "iptc_country_primary_location_code", string},
    Instruction{Key::kCGImagePropertyIPTCCountryPrimaryLocationName, "iptc_primary_location_name",
                string},
    Instruction{Key::kCGImagePropertyIPTCOriginalTransmissionReference,
                "iptc_original_transmission_reference", string},
    Instruction{Key::kCGImagePropertyIPTCHeadline, "iptc_headline", string},
    Instruction{Key::kCGImagePropertyIPTCCredit, "iptc_credit", string},
    Instruction{Key::kCGImagePropertyIPTCSource, "iptc_source", string},
    Instruction{Key::kCGImagePropertyIPTCCopyrightNotice, "iptc_copyright_notice", string},
    Instruction{Key::kCGImagePropertyIPTCContact, "iptc_contact", string},
    Instruction{Key::kCGImagePropertyIPTCCaptionAbstract, "iptc_caption_abstract", string},
    Instruction{Key::kCGImagePropertyIPTCWriterEditor, "iptc_writer_editor", string},
    Instruction{Key::kCGImagePropertyIPTCImageType, "iptc_image_type", string},
    Instruction{Key::kCGImagePropertyIPTCImageOrientation, "iptc_image_orientation", string},
    Instruction{Key::kCGImagePropertyIPTCLanguageIdentifier, "iptc_language_identifier", string},
    Instruction{Key::kCGImagePropertyIPTCStarRating, "iptc_star_rating", string},
    Instruction{Key::kCGImagePropertyIPTCCreatorContactInfo, "iptc_creator_contact_info", string},
    Instruction{Key::kCGImagePropertyIPTCRightsUsageTerms, "iptc_rights_usage_terms", string},
    Instruction{Key::kCGImagePropertyIPTCScene, "iptc_scene", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoCity, "iptc_contact_info_city", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoCountry, "iptc_contact_info_country", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoAddress, "iptc_contact_info_address", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoPostalCode, "iptc_contact_info_postal_code",
                string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoStateProvince,
                "iptc_contact_info_state_province", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoEmails, "iptc_contact_info_emails", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoPhones, "iptc_contact_info_phones", string},
    Instruction{Key::kCGImagePropertyIPTCContactInfoWebURLs, "iptc_contact_info_web_urls", string},
};

constexpr auto fileTypes = std::to_array<std::string_view>({
    "jpg", "jpeg", "jpe", "jfif", "mpo",  "png",   "apng",  "tif", "tiff", "webp", "gif", "bmp",
    "dib", "psd",  "psb", "heic", "heif", "heics", "heifs", "hif", "avif", "jp2",  "j2k", "j2c",
    "jpf", "jpx",  "jpc", "dng",  "cr2",  "cr3",   "nef",   "nrw", "arw",  "sr2",  "srf", "orf",
    "rw2", "raf",  "pef", "srw",  "3fr",  "iiq",   "erf",   "kdc", "dcr",  "mef",  "mos", "rwl",
    "ico", "cur",  "tga", "icb",  "vda",  "vst",   "targa", "m4b",
});

}  // namespace

ImageIOHelper::ExtractionModel ImageIOHelper::imageMetadataExtractionModel() { return imageModel; }
ImageIOHelper::ExtractionModel ImageIOHelper::gpsMetadataExtractionModel() { return gpsModel; }
ImageIOHelper::ExtractionModel ImageIOHelper::iptcMetadataExtractionModel() { return iptcModel; }
ImageIOHelper::ExtractionModel ImageIOHelper::tiffMetadataExtractionModel() { return tiffModel; }
ImageIOHelper::ExtractionModel ImageIOHelper::exifMetadataExtractionModel() { return exifModel; }

std::span<const std::string_view> ImageIOHelper::supportedFileTypes() { return fileTypes; }

}  // namespace marquell::metadata
