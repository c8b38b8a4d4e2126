// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "helpers/common/IsoBoxes.h"
#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {
namespace {

/// A depth is stored less one; the upper bit tells that there is a sign.
std::uint64_t depthOf(std::uint64_t stored) { return (stored & 0x7F) + 1; }

/// Pixels per metre: a fraction and an exponent of ten.
std::optional<double> density(std::uint64_t numerator, std::uint64_t denominator,
                              std::uint64_t exponent) {
    if (denominator == 0) return std::nullopt;
    const auto power = static_cast<std::int8_t>(static_cast<std::uint8_t>(exponent));
    return dpiFromMetric(
        static_cast<double>(numerator) / static_cast<double>(denominator) * std::pow(10.0, power),
        metresPerInch);
}

/// Prefers how the image is to be shown to how it was captured.
void readResolution(Input& input, const IsoBox& parent, ImageHeader& header) {
    auto box = findBox(input, parent.begin, parent.end, fourCharacters("resd"));
    if (!box) box = findBox(input, parent.begin, parent.end, fourCharacters("resc"));
    if (!box || box->length() < 10) return;
    const std::string fields = input.bytesAt(box->begin, 10);
    header.dpiHeight =
        density(bigEndian(fields, 0, 2), bigEndian(fields, 2, 2), bigEndian(fields, 8, 1));
    header.dpiWidth =
        density(bigEndian(fields, 4, 2), bigEndian(fields, 6, 2), bigEndian(fields, 9, 1));
}

void readBasics(Input& input, const IsoBox& box, ImageHeader& header) {
    IsoReader reader(input, box);
    const std::uint64_t height = reader.number(4);
    const std::uint64_t width = reader.number(4);
    setPixelSize(header, width, height);
    reader.skip(2);  // the number of components
    constexpr std::uint64_t differing = 0xFF;
    const std::uint64_t depth = reader.number(1);
    if (!reader.hasFailed() && depth != differing) setDepth(header, depthOf(depth));
}

std::string_view colorModel(std::uint64_t colorSpace) {
    switch (colorSpace) {
        case 0:
        case 15:
        case 17:
            return "Gray";
        case 12:
        case 13:
            return "CMYK";
        case 14:
            return "Lab";
        default:
            return "RGB";
    }
}

void readColors(Input& input, const IsoBox& box, ImageHeader& header) {
    IsoReader reader(input, box);
    constexpr std::uint64_t enumerated = 1;
    constexpr std::uint64_t restrictedProfile = 2;
    constexpr std::uint64_t anyProfile = 3;
    const std::uint64_t method = reader.number(1);
    reader.skip(2);
    if (method == enumerated) header.colorModel = colorModel(reader.number(4));
    if (method != restrictedProfile && method != anyProfile) return;
    header.colorProfile = profileAt(input, reader.position(), box.end - reader.position());
}

/// The depth of the first component or of the first column of the palette, at an offset.
void readDepth(Input& input, const IsoBox& box, std::uint64_t offset, ImageHeader& header) {
    IsoReader reader(input, box);
    reader.skip(offset);
    const std::uint64_t depth = reader.number(1);
    if (!reader.hasFailed()) setDepth(header, depthOf(depth));
}

ImageHeader readBoxes(Input& input) {
    ImageHeader header;
    const auto parent = findBox(input, 0, input.size(), fourCharacters("jp2h"));
    if (!parent) return header;
    IsoBoxWalk walk(input, parent->begin, parent->end);
    for (IsoBox box; walk.next(box);) {
        switch (box.type) {
            case fourCharacters("ihdr"):
                readBasics(input, box, header);
                break;
            case fourCharacters("bpcc"):
                readDepth(input, box, 0, header);
                break;
            case fourCharacters("pclr"):
                readDepth(input, box, 3, header);
                break;
            case fourCharacters("colr"):
                if (header.colorProfile.empty()) readColors(input, box, header);
                break;
            case fourCharacters("res "):
                readResolution(input, box, header);
                break;
            default:
                break;
        }
    }
    return header;
}

/// The segment that begins a bare code stream. The size is that of the reference grid without what
/// lies above and to the left of the image.
ImageHeader readCodeStream(Input& input) {
    ImageHeader header;
    const std::string fields = input.bytesAt(0, 43);
    if (fields.size() < 43) return header;
    const auto extent = [&fields](std::size_t end, std::size_t begin) -> std::uint64_t {
        const std::uint64_t last = bigEndian(fields, end, 4);
        const std::uint64_t first = bigEndian(fields, begin, 4);
        return last > first ? last - first : 0;
    };
    setPixelSize(header, extent(8, 16), extent(12, 20));
    setDepth(header, depthOf(bigEndian(fields, 42, 1)));
    return header;
}

}  // namespace

ImageHeader readJp2Header(Input& input) {
    const bool isBare = input.bytesAt(0, 2) == "\xFF\x4F";
    return isBare ? readCodeStream(input) : readBoxes(input);
}

}  // namespace marquell::helpers
