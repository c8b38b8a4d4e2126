// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "helpers/common/Input.h"
#include "helpers/image/ImageKind.h"

namespace marquell::helpers {

/// Texts that a format has places of its own for, beside EXIF, IPTC and XMP. Clean UTF-8, empty
/// where there is none.
struct EmbeddedTexts {
    std::string title;
    std::string author;
    std::string description;
    std::string copyright;
    std::string comment;
    std::string creationTime;      ///< as the file has it
    std::string modificationTime;  ///< ISO 8601
};

/// Of JPEG, PNG and GIF.
EmbeddedTexts readEmbeddedTexts(Input& input, ImageKind kind);

}  // namespace marquell::helpers
