// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <string>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/sound/Iso6709.h"
#include "helpers/sound/QuickTimeFields.h"
#include "helpers/sound/QuickTimeText.h"

namespace marquell::helpers {
namespace {

/// The first language's text: behind its length and its language.
std::string classicText(std::string_view bytes) {
    const std::string_view text = bytes.substr(std::min<std::size_t>(4, bytes.size()),
                                               static_cast<std::size_t>(bigEndian(bytes, 0, 2)));
    // Some cameras write nothing but the text.
    if (bytes.size() < 4 || text.size() < bigEndian(bytes, 0, 2)) {
        return isReadableText(bytes) ? decodedText(bytes, Charset::likely) : std::string();
    }
    return quickTimeText(text, bigEndian(bytes, 2, 2));
}

/// Takes a text that ends with NUL off the front: UTF-8, or UTF-16 with its byte order mark.
std::string takeText(std::string_view& bytes) {
    const bool isWide = bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
    const std::size_t unit = isWide ? 2 : 1;
    std::size_t length = 0;
    while (length < bytes.size() && bigEndian(bytes, length, unit) != 0) length += unit;
    length = std::min(length, bytes.size());
    std::string text = quickTimeText(bytes.substr(0, length), 0);
    bytes.remove_prefix(std::min(length + unit, bytes.size()));
    return text;
}

double fixedPoint(std::string_view bytes, std::size_t offset) {
    return static_cast<double>(static_cast<std::int32_t>(bigEndian(bytes, offset, 4))) / 65536;
}

/// Behind a name and the role of the place where it is; the name if it is nowhere.
std::string locationText(std::string_view bytes) {
    std::string name = takeText(bytes);
    constexpr std::size_t length = 13;
    if (bytes.size() < length) return name;
    GeographicPosition position{fixedPoint(bytes, 5), fixedPoint(bytes, 1), fixedPoint(bytes, 9)};
    if (position.altitude == 0) position.altitude.reset();  // mostly means that nobody knew
    const std::string text = iso6709Text(position);
    return parseIso6709(text) ? text : name;
}

/// The texts of a list, each with its length in front.
std::string keywordsText(std::string_view bytes) {
    std::string keywords;
    for (std::uint64_t count = bigEndian(bytes, 0, 1), at = 1; count > 0; --count) {
        const auto offset = static_cast<std::size_t>(at);
        const auto length = static_cast<std::size_t>(bigEndian(bytes, offset, 1));
        if (offset + 1 >= bytes.size()) break;
        std::string_view text = bytes.substr(offset + 1, length);
        if (!keywords.empty()) keywords += ", ";
        keywords += takeText(text);
        at += 1 + length;
    }
    return keywords;
}

std::string plainText(std::string_view bytes) { return takeText(bytes); }

/// A box of 3GP: behind its version, as many more bytes and its language, if it has one, the value.
struct MobileBox {
    std::string_view type;
    std::size_t skipped;
    std::string (*textOf)(std::string_view bytes);
};

std::string yearText(std::string_view bytes) {
    const std::uint64_t year = bigEndian(bytes, 0, 2);
    return year == 0 ? std::string() : std::to_string(year);
}

constexpr std::array mobileBoxes = {
    MobileBox{"titl", 2, plainText},    MobileBox{"auth", 2, plainText},
    MobileBox{"perf", 2, plainText},    MobileBox{"gnre", 2, plainText},
    MobileBox{"dscp", 2, plainText},    MobileBox{"cprt", 2, plainText},
    MobileBox{"albm", 2, plainText},    MobileBox{"coll", 2, plainText},
    MobileBox{"clsf", 8, plainText},    MobileBox{"kywd", 2, keywordsText},
    MobileBox{"loci", 2, locationText}, MobileBox{"yrrc", 0, yearText},
};

}  // namespace

void addQuickTimeUserData(QuickTimeFields& fields, TagInput& input, const IsoBox& userData) {
    TagBoxWalk walk(input, userData.begin, userData.end);
    for (IsoBox box; walk.next(box);) {
        const std::string type = input.input().bytesAt(box.begin - 4, 4);
        if (type == "meta") {
            addQuickTimeItems(fields, input, box);
            continue;
        }
        if (type.starts_with('\xA9')) {
            fields.userData.add(type, classicText(input.bytes(box.begin, box.end)));
            continue;
        }
        for (const MobileBox& known : mobileBoxes) {
            if (known.type != type) continue;
            const std::uint64_t begin = box.begin + 4 + known.skipped;
            fields.mobile.add(type, known.textOf(input.bytes(begin, box.end)));
        }
    }
}

}  // namespace marquell::helpers
