// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/CatalogueTable.h"

namespace marquell::metadata::catalogue {

namespace {

// Each run of a menu starts a line.
// clang-format off

constexpr std::string_view basicMenu[] = {
    "name", "file_name", "file_name_without_any_extensions",
    "-",
    "relative_path", "absolute_parent_path", "absolute_path", "extension", "tags",
    "-",
    "creation_date", "modification_date", "parent", "full_path_name_length",
};

constexpr std::string_view sizeMenu[] = {
    "human_readable_size", "size_in_bytes", "size_in_kb", "size_in_mb",
};

constexpr std::string_view spotlightMenu[] = {
    "contentcreationdate", "contentmodificationdate",
    "-",
    "dateadded", "downloadDate", "timestamp",
    "-",
    "title", "headline", "authors", "editors", "participants", "album", "description", "copyright",
    "editorialInstructions", "comment", "findercomment", "version", "contenttype", "keywords",
    "wherefroms",
    "-",
    "make", "model", "lensmodel", "focallength", "aperature", "fnumber", "exposuretimeseconds",
    "exposureprogram", "isospeed", "exifversion",
    "-",
    "pixelheight", "pixelwidth", "pixelcount", "resolutionwidthdpi", "resolutionheightdpi",
    "colorspace", "colorprofilename",
    "-",
    "namedlocation", "city", "stateorprovince", "country", "latitude", "longitude", "altitude",
    "speed", "gpstrack", "exifgpsversion", "imagedirection",
    "-",
    "duration", "human_readable_duration", "duration_hh_mm_ss", "audiobitrate", "bitspersample",
    "totalbitrate", "videobitrate", "codecs", "mediatypes",
};

constexpr std::string_view basicImageMenu[] = {
    "image_pixel_height", "image_pixel_width", "image_dpi_width", "image_dpi_height", "image_depth",
    "image_profile_name",
};

constexpr std::string_view exifMenu[] = {
    "exif_date_time_original", "exif_date_time_digitized",
    "-",
    "exif_subsec_time", "exif_subsec_time_original", "exif_subsec_time_digitized",
    "-",
    "exif_focal_length", "exif_exposure_time", "exif_focal_length_in_35mm_film", "exif_f_number",
    "exif_shutter_speed", "exif_aperature", "exif_iso_speed", "exif_digital_zoom_ratio",
    "-",
    "exif_pixel_x_dimension", "exif_pixel_y_dimension",
    "-",
    "exif_user_comment",
    "-",
    "exif_make", "exif_model", "exif_camera_owner_type", "exif_body_serial_number",
    "-",
    "exif_lens_make", "exif_lens_model", "exif_lens_serial_number", "exif_lens_specification",
    "-",
    "exif_flash", "exif_metering_mode", "exif_light_source", "exif_exposure_mode",
    "exif_scene_capture_type", "exif_contrast", "exif_brightness", "exif_saturation",
    "exif_sharpness", "exif_gamma",
    "-",
    "exif_color_space", "exif_white_balance",
    "-",
    "exif_subject_distance_range", "exif_subject_distance", "exif_subject_location",
    "-",
    "exif_exposure_program", "exif_scene_type", "exif_device_setting_description",
    "exif_image_unique_id", "exif_maker_note", "exif_iso_speed_ratings", "exif_version",
};

constexpr std::string_view gpsMenu[] = {
    "gps_latitude_ref", "gps_latitude",
    "-",
    "gps_longitude_ref", "gps_longitude",
    "-",
    "gps_altitude_ref", "gps_altitude",
    "-",
    "gps_speed_ref", "gps_speed",
    "-",
    "gps_track_ref", "gps_track",
    "-",
    "gps_image_direction_ref", "gps_image_direction",
    "-",
    "gps_destination_latitude_ref", "gps_destination_latitude",
    "-",
    "gps_destination_longitude_ref", "gps_destination_longitude",
    "-",
    "gps_destination_bearing_ref", "gps_destination_bearing",
    "-",
    "gps_distance_ref", "gps_distance",
    "-",
    "gps_differential", "gps_positioning_error", "gps_date_stamp", "gps_version", "gps_dop",
    "gps_time_stamp", "gps_satellites", "gps_status", "gps_measure_mode", "gps_map_datum",
    "gps_processing_method", "gps_area_information",
};

constexpr std::string_view iptcCommonUsageMenu[] = {
    "iptc_object_name", "iptc_headline", "iptc_subject_reference", "iptc_attribute_reference",
    "iptc_date_created",
    "-",
    "iptc_caption_abstract", "iptc_writer_editor", "iptc_keywords", "iptc_scene",
    "-",
    "iptc_city", "iptc_province_state", "iptc_country_primary_location_code", "iptc_sub_location",
    "-",
    "iptc_creator", "iptc_creator_contact_info", "iptc_creator_job_title",
    "-",
    "iptc_credit", "iptc_copyright_notice", "iptc_rights_usage_terms",
    "-",
    "iptc_source", "iptc_original_transmission_reference", "iptc_special_instructions",
};

constexpr std::string_view iptcContactInfoMenu[] = {
    "-",
    "iptc_contact", "iptc_contact_info_address", "iptc_contact_info_city",
    "iptc_contact_info_country", "iptc_contact_info_emails", "iptc_contact_info_phones",
    "iptc_contact_info_postal_code", "iptc_contact_info_state_province",
    "iptc_contact_info_web_urls",
};

constexpr std::string_view iptcIISLegacyMenu[] = {
    "iptc_object_type_reference", "iptc_edit_status", "iptc_editorial_update", "iptc_urgency",
    "iptc_category", "iptc_supplemental_category", "iptc_fixture_identifier",
    "iptc_content_location_code", "iptc_content_location_name", "iptc_release_date",
    "iptc_release_time", "iptc_expiration_date", "iptc_expiration_time", "iptc_action_advised",
    "iptc_reference_service", "iptc_reference_date", "iptc_reference_number", "iptc_time_created",
    "iptc_digital_creation_date", "iptc_digital_creation_time", "iptc_originating_program",
    "iptc_program_version", "iptc_object_cycle", "iptc_primary_location_name", "iptc_image_type",
    "iptc_image_orientation", "iptc_language_identifier",
};

constexpr std::string_view audioVisualCommonMenu[] = {
    "av_author", "av_artist", "av_creator", "av_publisher", "av_contributor",
    "-",
    "av_title", "av_subject", "av_album", "av_identifier",
    "-",
    "av_lyrics", "av_description", "av_type", "av_source", "av_format", "av_language",
    "av_relation", "av_location", "av_copyrights", "av_software",
    "-",
    "av_make", "av_model",
    "-",
    "av_creation_date", "av_modified_date",
};

constexpr std::string_view id3Menu[] = {
    "id3_title_description", "id3_band", "id3_album_title", "id3_content_type", "id3_track_number",
    "id3_year",
    "-",
    "id3_lyricist", "id3_lead_performer", "id3_conductor", "id3_composer",
    "id3_musician_credits_list", "id3_involved_people_list",
    "-",
    "id3_sub_title", "id3_mood", "id3_date", "id3_language", "id3_music_cd_indentifier",
    "id3_file_type", "id3_time", "id3_length", "id3_initial_key",
    "-",
    "id3_original_lyricist", "id3_original_artist", "id3_original_album_title",
    "id3_original_release_year", "id3_original_release_date",
    "-",
    "id3_publisher", "id3_commercial", "id3_radio_station_name", "id3_radio_station_owner",
    "id3_international_standard_recording_code", "id3_payment",
    "-",
    "id3_part_of_a_set", "id3_set_subtitle",
    "-",
    "id3_encoded_with", "id3_encoded_by", "id3_encoding_time", "id3_recording_time",
    "id3_release_time", "id3_tagging_time", "id3_title_sort_order", "id3_album_sort_order",
    "id3_performer_sort_order", "id3_produced_notice", "id3_recording_dates",
    "id3_original_file_name",
    "-",
    "id3_copyright", "id3_copyright_information", "id3_terms_of_use", "id3_commercial_information",
    "id3_file_owner", "id3_ownership",
    "-",
    "id3_user_text", "id3_modified_by", "id3_comments", "id3_private",
    "-",
    "id3_bpm", "id3_size", "id3_media_type", "id3_unique_file_identifier",
    "id3_unsynchronized_lyric", "id3_encryption", "id3_equalization", "id3_equalization2",
    "id3_event_timing_codes", "id3_group_identifier", "id3_group_description", "id3_play_counter",
    "id3_popularimeter", "id3_position_synchronization", "id3_relative_volume_adjustment",
    "id3_relative_volume_adjustment2", "id3_reverb", "id3_signature", "id3_synchronized_lyric",
    "id3_synchronized_tempo_codes", "id3_playlist_delay",
    "-",
    "id3_link", "id3_official_audio_file_webpage", "id3_official_artist_webpage",
    "id3_official_publisher_webpage", "id3_official_source_webpage",
    "id3_internet_radio_station_homepage",
};

constexpr std::string_view hashesMenu[] = {
    "md5", "sha1", "sha256", "sha384", "sha512",
};

// clang-format on

constexpr TagSpaceRow tagSpaceTable[] = {
    {DescriptiveTagSpace::Basic, "Basic", "Basic", "", MetadataSource::basic, basicMenu, false},
    {DescriptiveTagSpace::Size, "Size", "Size", "", MetadataSource::basic, sizeMenu, true},
    {DescriptiveTagSpace::Spotlight, "Spotlight", "Spotlight", "Spotlight",
     MetadataSource::spotlight, spotlightMenu, true},
    {DescriptiveTagSpace::BasicImage, "Image", "Image", "Image", MetadataSource::imageIO,
     basicImageMenu, false},
    {DescriptiveTagSpace::EXIF, "EXIF", "EXIF", "EXIF", MetadataSource::imageIO, exifMenu, false},
    {DescriptiveTagSpace::GPS, "GPS", "GPS", "GPS", MetadataSource::imageIO, gpsMenu, true},
    {DescriptiveTagSpace::IPTCCommonUsage, "IPTC (Common Usage)", "IPTC", "IPTC",
     MetadataSource::imageIO, iptcCommonUsageMenu, false},
    {DescriptiveTagSpace::IPTCContactInfo, "IPTC (Contact Info)", "IPTC (Contact)", "IPTC",
     MetadataSource::imageIO, iptcContactInfoMenu, false},
    {DescriptiveTagSpace::IPTCIISLegacy, "IPTC (IIM Legacy)", "IPTC (Legacy)", "IPTC",
     MetadataSource::imageIO, iptcIISLegacyMenu, true},
    {DescriptiveTagSpace::AudioVisualCommon, "Audio Visual (Common)", "AV", "AV",
     MetadataSource::avKit, audioVisualCommonMenu, false},
    {DescriptiveTagSpace::ID3, "ID3", "ID3", "ID3", MetadataSource::avKit, id3Menu, true},
    {DescriptiveTagSpace::Hashes, "Hashes", "Hashes", "Hashes", MetadataSource::hashes, hashesMenu,
     false},
};

constexpr std::string_view nodeIds[] = {
    "name",
    "absolute_parent_path",
    "absolute_path",
    "extension",
};

constexpr KeySource keySources[] = {
    {"size", MetadataSource::basic},
    {"layernames", MetadataSource::spotlight},
    {"iptc_star_rating", MetadataSource::imageIO},
};

}  // namespace

std::span<const TagSpaceRow> tagSpaces() { return tagSpaceTable; }

std::span<const std::string_view> idsOfTheNode() { return nodeIds; }

std::span<const KeySource> keysWithoutTagSpace() { return keySources; }

}  // namespace marquell::metadata::catalogue
