// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/ImageKind.h"

#include <algorithm>
#include <array>
#include <string>

#include "helpers/common/IsoBoxes.h"
#include "helpers/common/Numbers.h"
#include "helpers/image/HeifItems.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

using namespace std::string_view_literals;

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

constexpr std::array imageBrands = {"heic"sv, "heix"sv, "heim"sv, "heis"sv, "avif"sv};
// A sequence is an image only with one to show for it; the others just name the structure.
constexpr std::array sequenceBrands = {"hevc"sv, "hevx"sv, "avis"sv, "msf1"sv};
constexpr std::array generalBrands = {"mif1"sv, "miaf"sv};
constexpr std::array targaExtensions = {"tga"sv, "icb"sv, "vda"sv, "vst"sv, "targa"sv};

bool contains(const auto& list, std::string_view text) {
    return std::ranges::find(list, text) != list.end();
}

/// Whether one of the compatible brands is that of an image.
bool hasImageBrand(Input& input, const IsoBox& box) {
    constexpr std::uint64_t first = 8;
    for (std::uint64_t at = first; at + 4 <= box.length() && at < 4 * maximumSteps; at += 4) {
        const std::string brand = input.bytesAt(box.begin + at, 4);
        if (contains(imageBrands, brand) || contains(generalBrands, brand)) return true;
    }
    return false;
}

/// By the major brand: a film may well list an image's brand beside its own.
ImageKind kindByBrand(Input& input) {
    IsoBoxWalk walk(input, 0, input.size());
    IsoBox box;
    if (!walk.next(box) || box.type != fourCharacters("ftyp") || box.length() < 4) {
        return ImageKind::none;
    }
    const std::string major = input.bytesAt(box.begin, 4);
    if (major == "crx ") return ImageKind::cr3;
    if (contains(imageBrands, major)) return ImageKind::heif;
    const bool isGeneral = contains(generalBrands, major);
    const bool isSequence = contains(sequenceBrands, major);
    const bool isImage = isGeneral || (isSequence && hasImageBrand(input, box));
    return isImage && HeifItems(input).primary() ? ImageKind::heif : ImageKind::none;
}

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
    if (view.starts_with("BM") && isPlausibleBmp(input)) return ImageKind::bmp;
    if (view.substr(0, 8).ends_with("ftyp")) return kindByBrand(input);
    if (isPlausibleIco(input)) return ImageKind::ico;
    if (contains(targaExtensions, extension) && isPlausibleTga(input)) return ImageKind::tga;
    return ImageKind::none;
}

}  // namespace marquell::helpers
