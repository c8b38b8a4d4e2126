// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/ImageKind.h"

#include <algorithm>
#include <array>
#include <string>

#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

using std::string_view_literals::operator""sv;

struct Signature {
    std::string_view start;
    ImageKind kind;
    std::string_view more = {};  ///< what else must be there
    std::size_t offset = 0;      ///< where
};

// The first that fits tells the kind.
constexpr std::array signatures = {
    Signature{"\xFF\xD8\xFF"sv, ImageKind::jpeg},
    Signature{"\x89PNG\r\n\x1A\n"sv, ImageKind::png},
    Signature{"II*\0"sv, ImageKind::cr2, "CR"sv, 8},
    Signature{"II*\0"sv, ImageKind::tiff},
    Signature{"MM\0*"sv, ImageKind::tiff},
    Signature{"II+\0"sv, ImageKind::tiff},
    Signature{"MM\0+"sv, ImageKind::tiff},
    Signature{"IIRO"sv, ImageKind::orf},
    Signature{"IIRS"sv, ImageKind::orf},
    Signature{"MMOR"sv, ImageKind::orf},
    Signature{"IIU\0"sv, ImageKind::rw2},
    Signature{"FUJIFILMCCD-RAW"sv, ImageKind::raf},
    Signature{"RIFF"sv, ImageKind::webp, "WEBP"sv, 8},
    Signature{"GIF87a"sv, ImageKind::gif},
    Signature{"GIF89a"sv, ImageKind::gif},
    Signature{"8BPS\0\1"sv, ImageKind::psd},
    Signature{"8BPS\0\2"sv, ImageKind::psd},
    Signature{"\0\0\0\x0CjP  \r\n\x87\n"sv, ImageKind::jp2},
    Signature{"\xFF\x4F\xFF\x51"sv, ImageKind::jp2},
};

}  // namespace

ImageKind imageKindOf(Input& input, std::string_view extension) {
    const std::string head = input.bytesAt(0, 32);
    const std::string_view view = head;
    for (const Signature& signature : signatures) {
        const bool hasMore =
            signature.more.empty() || (view.size() > signature.offset &&
                                       view.substr(signature.offset).starts_with(signature.more));
        if (view.starts_with(signature.start) && hasMore) return signature.kind;
    }
    static_cast<void>(extension);
    return ImageKind::none;
}

}  // namespace marquell::helpers
