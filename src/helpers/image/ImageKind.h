// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// The kinds of image file that are read, by the container that decides how.
enum class ImageKind {
    none,  ///< no image, or of a kind that is not read: sound, video, text
    jpeg,
    png,
    tiff,  ///< with it DNG, NEF, ARW, PEF, SRW and other raw forms that are plain TIFF
    cr2,
    orf,
    rw2,
    raf,
    cr3,
    webp,
    gif,
    bmp,
    psd,
    heif,  ///< HEIC and AVIF: an ISO base media file with an image as its primary item
    jp2,   ///< the boxed form and the bare code stream
    ico,   ///< icons and cursors
    tga,
};

/// Tells the kind by the content. `extension` (lower case, without the dot) decides only about TGA,
/// which has no signature. Never takes a film or a sound file for an image.
ImageKind imageKindOf(Input& input, std::string_view extension);

}  // namespace marquell::helpers
