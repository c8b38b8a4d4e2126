// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/IndexTasks.h"

#include <algorithm>
#include <array>

namespace marquell::metadata {
namespace {

using platform::HelperTask;

struct Row {
    /// A whole type, or the beginning of some up to one of "/.-".
    std::string_view type;
    std::optional<HelperTask> task;
};

// The first row that fits counts. Playlists, notes and drawings have nothing to read, and text in
// them leads to other files.
constexpr std::array<Row, 48> rows = {{
    {"image/svg+xml", std::nullopt},
    {"image/svg+xml-compressed", std::nullopt},
    {"image/vnd.djvu", std::nullopt},
    {"image/vnd.djvu+multipage", std::nullopt},
    {"image/", HelperTask::imageIndex},
    {"audio/x-wav", HelperTask::soundIndex},
    {"audio/vnd.wave", HelperTask::soundIndex},
    {"audio/x-aiff", HelperTask::soundIndex},
    {"audio/x-aifc", HelperTask::soundIndex},
    {"audio/x-caf", HelperTask::soundIndex},
    {"audio/basic", HelperTask::soundIndex},
    {"audio/flac", HelperTask::soundIndex},
    {"audio/midi", std::nullopt},
    {"audio/x-mod", std::nullopt},
    {"audio/x-ms-asx", std::nullopt},
    {"audio/x-mpegurl", std::nullopt},
    {"audio/x-scpls", std::nullopt},
    {"audio/x-riff", HelperTask::soundIndex},
    {"audio/", HelperTask::streamIndex},
    {"video/x-ms-wvx", std::nullopt},
    {"video/x-ms-wax", std::nullopt},
    {"video/vnd.mpegurl", std::nullopt},
    {"video/", HelperTask::streamIndex},
    {"application/ogg", HelperTask::streamIndex},
    {"application/mxf", HelperTask::streamIndex},
    {"application/vnd.ms-asf", HelperTask::streamIndex},
    {"application/vnd.rn-realmedia", HelperTask::streamIndex},
    {"application/vnd.rn-realmedia-vbr", HelperTask::streamIndex},
    {"application/x-shorten", HelperTask::streamIndex},
    {"application/x-matroska", HelperTask::streamIndex},
    {"application/pdf", HelperTask::pdfIndex},
    {"application/illustrator", HelperTask::pdfIndex},
    {"application/vnd.openxmlformats-officedocument.", HelperTask::packageIndex},
    {"application/vnd.ms-word.document.", HelperTask::packageIndex},
    {"application/vnd.ms-word.template.", HelperTask::packageIndex},
    {"application/vnd.ms-excel.", HelperTask::packageIndex},
    {"application/vnd.ms-powerpoint.", HelperTask::packageIndex},
    {"application/vnd.ms-visio.", HelperTask::packageIndex},
    {"application/vnd.oasis.opendocument.text-flat-xml", std::nullopt},
    {"application/vnd.oasis.opendocument.spreadsheet-flat-xml", std::nullopt},
    {"application/vnd.oasis.opendocument.presentation-flat-xml", std::nullopt},
    {"application/vnd.oasis.opendocument.", HelperTask::packageIndex},
    {"application/epub+zip", HelperTask::packageIndex},
    {"application/zip", HelperTask::packageIndex},
    {"application/xhtml+xml", HelperTask::webPageIndex},
    {"text/html", HelperTask::webPageIndex},
    {"message/rfc822", HelperTask::messageIndex},
    {"application/mbox", HelperTask::messageIndex},
}};

}  // namespace

std::optional<HelperTask> indexTask(std::string_view type) {
    const auto* const row = std::find_if(rows.begin(), rows.end(), [type](const Row& candidate) {
        constexpr std::string_view openEnds = "/.-";
        const bool isBeginning = openEnds.find(candidate.type.back()) != std::string_view::npos;
        return isBeginning ? type.starts_with(candidate.type) : type == candidate.type;
    });
    return row == rows.end() ? std::nullopt : row->task;
}

}  // namespace marquell::metadata
