// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/CatalogueTable.h"

namespace marquell::metadata::catalogue {

namespace {

// Each run of the table starts a line.
// clang-format off

constexpr std::string_view tagTable[] = {
    "name", "absolute_path", "extension", "creation_date", "modification_date", "tags",
    "full_path_name_length", "contentcreationdate", "contentmodificationdate", "copyright", "title",
    "comment", "findercomment", "version", "colorspace", "make", "model", "layernames",
    "colorprofilename", "lensmodel", "headline", "album", "description", "editorialInstructions",
    "city", "stateorprovince", "country", "speed", "namedlocation", "imagedirection", "gpstrack",
    "longitude", "latitude", "altitude", "exifgpsversion", "exifversion", "contenttype",
    "dateadded", "downloadDate", "bitspersample", "focallength", "isospeed", "resolutionwidthdpi",
    "resolutionheightdpi", "totalbitrate", "videobitrate", "human_readable_size", "size_in_bytes",
    "size_in_kb", "size_in_mb", "audiobitrate", "fnumber", "exposureprogram", "timestamp",
    "keywords", "authors", "participants", "editors", "codecs", "wherefroms", "mediatypes",
    "pixelheight", "pixelwidth", "pixelcount", "duration", "aperature", "exposuretimeseconds",
    "file_name", "file_name_without_any_extensions", "parent", "absolute_parent_path",
    "relative_path", "human_readable_duration", "duration_hh_mm_ss", "image_pixel_height",
    "image_pixel_width", "image_dpi_width", "image_dpi_height", "image_depth", "image_profile_name",
    "exif_date_time_original", "exif_date_time_digitized", "exif_subject_distance",
    "exif_metering_mode", "exif_light_source", "exif_flash", "exif_focal_length", "exif_maker_note",
    "exif_user_comment", "exif_subsec_time", "exif_subsec_time_original",
    "exif_subsec_time_digitized", "exif_color_space", "exif_pixel_x_dimension",
    "exif_pixel_y_dimension", "exif_subject_location", "exif_scene_type", "exif_exposure_mode",
    "exif_white_balance", "exif_digital_zoom_ratio", "exif_focal_length_in_35mm_film",
    "exif_scene_capture_type", "exif_contrast", "exif_saturation", "exif_sharpness",
    "exif_device_setting_description", "exif_subject_distance_range", "exif_image_unique_id",
    "exif_camera_owner_type", "exif_body_serial_number", "exif_lens_specification",
    "exif_lens_make", "exif_lens_model", "exif_lens_serial_number", "exif_gamma",
    "exif_exposure_time", "exif_f_number", "exif_exposure_program", "exif_shutter_speed",
    "exif_aperature", "exif_brightness", "exif_iso_speed_ratings", "exif_iso_speed", "exif_version",
    "exif_make", "exif_model", "gps_version", "gps_latitude_ref", "gps_latitude",
    "gps_longitude_ref", "gps_longitude", "gps_altitude_ref", "gps_altitude", "gps_time_stamp",
    "gps_satellites", "gps_status", "gps_measure_mode", "gps_dop", "gps_speed_ref", "gps_speed",
    "gps_track_ref", "gps_track", "gps_image_direction_ref", "gps_image_direction", "gps_map_datum",
    "gps_destination_latitude_ref", "gps_destination_latitude", "gps_destination_longitude_ref",
    "gps_destination_longitude", "gps_destination_bearing_ref", "gps_destination_bearing",
    "gps_distance_ref", "gps_distance", "gps_processing_method", "gps_area_information",
    "gps_date_stamp", "gps_differential", "gps_positioning_error", "iptc_subject_reference",
    "iptc_object_type_reference", "iptc_attribute_reference", "iptc_object_name", "iptc_headline",
    "iptc_creator", "iptc_creator_job_title",
    "-",
    "iptc_keywords", "iptc_category", "iptc_supplemental_category", "iptc_caption_abstract",
    "iptc_writer_editor", "iptc_urgency", "iptc_special_instructions", "iptc_action_advised",
    "iptc_editorial_update", "iptc_edit_status", "iptc_fixture_identifier",
    "iptc_reference_service", "iptc_reference_date", "iptc_reference_number",
    "-",
    "iptc_date_created", "iptc_time_created", "iptc_digital_creation_date",
    "iptc_digital_creation_time", "iptc_release_date", "iptc_release_time", "iptc_expiration_date",
    "iptc_expiration_time",
    "-",
    "iptc_city", "iptc_sub_location", "iptc_province_state", "iptc_country_primary_location_code",
    "iptc_primary_location_name", "iptc_content_location_code", "iptc_content_location_name",
    "-",
    "iptc_originating_program", "iptc_program_version", "iptc_copyright_notice",
    "iptc_rights_usage_terms", "iptc_credit", "iptc_contact", "iptc_source",
    "iptc_creator_contact_info", "iptc_contact_info_city", "iptc_contact_info_country",
    "iptc_contact_info_address", "iptc_contact_info_postal_code",
    "iptc_contact_info_state_province", "iptc_contact_info_emails", "iptc_contact_info_phones",
    "iptc_contact_info_web_urls", "iptc_original_transmission_reference", "iptc_image_type",
    "iptc_image_orientation", "iptc_language_identifier", "iptc_star_rating", "iptc_scene",
    "iptc_object_cycle", "av_author", "av_artist", "av_creator", "av_publisher", "av_contributor",
    "av_title", "av_subject", "av_album", "av_identifier", "av_description", "av_lyrics", "av_type",
    "av_source", "av_format", "av_language", "av_relation", "av_location", "av_copyrights",
    "av_software", "av_make", "av_model", "av_creation_date", "av_modified_date",
    "id3_title_description", "id3_sub_title", "id3_album_title", "id3_lyricist",
    "id3_original_lyricist", "id3_original_artist", "id3_band", "id3_lead_performer",
    "id3_composer", "id3_conductor", "id3_publisher", "id3_original_album_title",
    "id3_original_file_name", "id3_original_release_year", "id3_comments", "id3_commercial",
    "id3_encryption", "id3_equalization", "id3_equalization2", "id3_event_timing_codes",
    "id3_group_identifier", "id3_involved_people_list", "id3_link", "id3_music_cd_indentifier",
    "id3_ownership", "id3_private", "id3_play_counter", "id3_popularimeter",
    "id3_position_synchronization", "id3_relative_volume_adjustment",
    "id3_relative_volume_adjustment2", "id3_reverb", "id3_signature", "id3_synchronized_lyric",
    "id3_synchronized_tempo_codes", "id3_bpm", "id3_content_type", "id3_copyright", "id3_date",
    "id3_encoding_time", "id3_playlist_delay", "id3_original_release_date", "id3_recording_time",
    "id3_release_time", "id3_tagging_time", "id3_encoded_by", "id3_file_type", "id3_time",
    "id3_group_description", "id3_initial_key", "id3_language", "id3_length",
    "id3_musician_credits_list", "id3_media_type", "id3_mood", "id3_file_owner", "id3_modified_by",
    "id3_part_of_a_set", "id3_track_number", "id3_produced_notice", "id3_recording_dates",
    "id3_radio_station_name", "id3_radio_station_owner", "id3_size", "id3_album_sort_order",
    "id3_performer_sort_order", "id3_title_sort_order", "id3_international_standard_recording_code",
    "id3_encoded_with", "id3_set_subtitle", "id3_year", "id3_user_text",
    "id3_unique_file_identifier", "id3_terms_of_use", "id3_unsynchronized_lyric",
    "id3_commercial_information", "id3_copyright_information", "id3_payment",
    "id3_official_audio_file_webpage", "id3_official_artist_webpage", "id3_official_source_webpage",
    "id3_internet_radio_station_homepage", "id3_official_publisher_webpage", "md5", "sha1",
    "sha256", "sha384", "sha512",
};

// clang-format on

}  // namespace

std::span<const std::string_view> tagTableRows() { return tagTable; }

}  // namespace marquell::metadata::catalogue
