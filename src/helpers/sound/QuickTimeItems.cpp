// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <string>
#include <vector>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/sound/Id3Genres.h"
#include "helpers/sound/QuickTimeFields.h"

namespace marquell::helpers {
namespace {

/// What a box of the family says its value is.
enum Kind : std::uint64_t {
    reserved = 0,
    utf8 = 1,
    utf16 = 2,
    sortUtf8 = 4,
    sortUtf16 = 5,
    bigEndianSigned = 21,
    bigEndianUnsigned = 22,
    signed8 = 65,
    signed16 = 66,
    signed32 = 67,
    signed64 = 74,
    unsigned8 = 75,
    unsigned16 = 76,
    unsigned32 = 77,
    unsigned64 = 78,
};

std::string signedText(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > 8) return {};
    const auto unused = static_cast<unsigned>(64 - 8 * bytes.size());
    const std::uint64_t shifted = bigEndian(bytes, 0, bytes.size()) << unused;
    return std::to_string(static_cast<std::int64_t>(shifted) >> unused);
}

std::string valueText(std::uint64_t kind, std::string_view bytes) {
    switch (kind) {
        case utf8:
        case sortUtf8:
            return decodedText(bytes, Charset::likely);
        case utf16:
        case sortUtf16:
            return decodedText(bytes, Charset::utf16BigEndian);
        case bigEndianSigned:
        case signed8:
        case signed16:
        case signed32:
        case signed64:
            return signedText(bytes);
        case bigEndianUnsigned:
        case unsigned8:
        case unsigned16:
        case unsigned32:
        case unsigned64:
            return bytes.size() > 8 ? std::string()
                                    : std::to_string(bigEndian(bytes, 0, bytes.size()));
        case reserved:
            return isReadableText(bytes) ? decodedText(bytes, Charset::likely) : std::string();
        default:
            return {};
    }
}

/// The first value of an item.
std::string itemText(TagInput& input, const IsoBox& item) {
    const auto data = findTagBox(input, item.begin, item.end, "data");
    if (!data) return {};
    constexpr std::uint64_t headerLength = 8;
    const std::string header = input.input().bytesAt(data->begin, headerLength);
    if (data->length() <= headerLength) return {};
    const std::string value = input.bytes(data->begin + headerLength, data->end);
    if (item.type == fourCharacters("gnre")) {
        const std::uint64_t number = bigEndian(value, 0, value.size());
        return number == 0 ? std::string() : std::string(id3GenreName(number - 1));
    }
    return valueText(bigEndian(header, 0, 4) & 0xFFFFFFU, value);
}

std::vector<std::string> keyNames(TagInput& input, const IsoBox& keys) {
    constexpr std::uint64_t headerLength = 8;
    std::vector<std::string> names;
    // The entries are laid out like boxes.
    TagBoxWalk walk(input, keys.begin + headerLength, keys.end);
    for (IsoBox key; walk.next(key);) names.push_back(input.bytes(key.begin, key.end));
    return names;
}

std::string ownName(TagInput& input, const IsoBox& item) {
    const auto name = findTagBox(input, item.begin, item.end, "name");
    return name ? input.bytes(std::min(name->begin + 4, name->end), name->end) : std::string();
}

}  // namespace

void addQuickTimeItems(QuickTimeFields& fields, TagInput& input, const IsoBox& meta) {
    // QuickTime files have the boxes at once, others a version before them.
    const bool isPlain =
        bigEndian(input.input().bytesAt(meta.begin + 4, 4), 0, 4) == fourCharacters("hdlr");
    const std::uint64_t begin = std::min(meta.begin + (isPlain ? 0 : 4), meta.end);
    const auto items = findTagBox(input, begin, meta.end, "ilst");
    if (!items) return;
    const auto keys = findTagBox(input, begin, meta.end, "keys");
    const auto names = keys ? keyNames(input, *keys) : std::vector<std::string>();
    TagBoxWalk walk(input, items->begin, items->end);
    for (IsoBox item; walk.next(item);) {
        if (keys) {
            const std::size_t number = item.type;
            if (number == 0 || number > names.size()) continue;
            fields.keys.add(names[number - 1], itemText(input, item));
        } else if (item.type == fourCharacters("----")) {
            fields.ownItems.add(ownName(input, item), itemText(input, item));
        } else if (item.type != fourCharacters("covr")) {
            fields.items.add(input.input().bytesAt(item.begin - 4, 4), itemText(input, item));
        }
    }
}

}  // namespace marquell::helpers
