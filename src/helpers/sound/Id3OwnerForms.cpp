// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>

#include "helpers/common/Input.h"
#include "helpers/common/Numbers.h"
#include "helpers/sound/Id3Fields.h"
#include "helpers/sound/Id3Forms.h"

namespace marquell::helpers {
namespace {

/// Bytes of no declared kind as a text if they are one, of Latin letters or in 16 bits for each of
/// them; else empty.
std::string readableText(std::string_view bytes) {
    // Numbers that look like a text mostly end with more zeros than that has.
    constexpr std::string_view zeros("\0\0", 2);
    if (!bytes.ends_with(zeros) && isReadableText(bytes)) {
        return decodedText(bytes, Charset::likely);
    }
    if (bytes.starts_with("\xFF\xFE")) bytes.remove_prefix(2);
    if (bytes.ends_with(zeros)) bytes.remove_suffix(2);
    if (bytes.size() < 4 || bytes.size() % 2 != 0) return {};
    std::string letters;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        if (bytes[i] == '\0' || bytes[i + 1] != '\0') return {};
        letters += bytes[i];
    }
    return isReadableText(letters) ? letters : std::string();
}

std::string hexText(std::string_view bytes) {
    constexpr std::size_t maximumLength = 32;
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes.substr(0, maximumLength)) {
        const auto value = static_cast<unsigned char>(byte);
        text += digits[value >> 4U];
        text += digits[value & 0xFU];
    }
    return bytes.size() > maximumLength ? text + "\u2026" : text;
}

std::string dataText(std::string_view bytes) {
    std::string text = readableText(bytes);
    return text.empty() ? hexText(bytes) : text;
}

/// Absent if there is none, or none that a number of 64 bits has place for.
std::optional<std::uint64_t> wholeNumber(std::string_view bytes) {
    if (bytes.empty()) return std::nullopt;
    bytes.remove_prefix(std::min(bytes.find_first_not_of('\0'), bytes.size()));
    if (bytes.size() > 8) return std::nullopt;
    return bigEndian(bytes, 0, bytes.size());
}

/// What an owner registers: a number for use in other frames, and data.
Id3Text registration(std::string_view content, std::string_view kind) {
    Id3Fields fields(content);
    std::string owner = fields.latin();
    const std::string number = std::string(kind) + " " + std::to_string(fields.number(1));
    return {std::move(owner), joinedTexts({number, dataText(fields.rest())})};
}

/// "20240229" becomes "2024-02-29"; all else stays.
std::string dateText(std::string_view bytes) {
    std::string text = decodedText(bytes, Charset::likely);
    const bool isDate = text.size() == 8 && std::ranges::all_of(text, [](char digit) {
                            return digit >= '0' && digit <= '9';
                        });
    return isDate ? text.insert(6, "-").insert(4, "-") : text;
}

/// Where the tracks of a compact disc begin, the last being the end, in frames of 1/75 s as such
/// lists have them everywhere: from 150. Absent if the bytes are no table of contents.
std::optional<Id3Text> trackOffsets(std::string_view table) {
    constexpr std::size_t headLength = 4;
    constexpr std::size_t trackLength = 8;
    constexpr std::uint64_t leadIn = 150;
    // Behind it there may be the rest of a buffer.
    table = table.substr(0, 2 + static_cast<std::size_t>(bigEndian(table, 0, 2)));
    const bool isTable = bigEndian(table, 0, 2) + 2 == table.size() &&
                         table.size() >= headLength + trackLength &&
                         table.size() <= headLength + 100 * trackLength &&
                         (table.size() - headLength) % trackLength == 0;
    if (!isTable) return std::nullopt;
    // An address counts frames from 0, or is a minute, a second from 2 on and a frame.
    const std::uint64_t first = bigEndian(table, headLength + 4, 4);
    bool isTime = first >= 0x200;
    for (std::size_t i = headLength; i < table.size(); i += trackLength) {
        const std::uint64_t address = bigEndian(table, i + 4, 4);
        isTime = isTime && address >> 16U < 100 && (address >> 8U & 0xFFU) < 60 &&
                 (address & 0xFFU) < 75;
    }
    std::vector<std::string> offsets;
    for (std::size_t i = headLength; i < table.size(); i += trackLength) {
        const std::uint64_t address = bigEndian(table, i + 4, 4);
        const std::uint64_t seconds = (address >> 16U) * 60 + (address >> 8U & 0xFFU);
        const std::uint64_t offset = isTime ? seconds * 75 + (address & 0xFFU) : address + leadIn;
        offsets.push_back(std::to_string(offset));
    }
    return Id3Text{{}, joinedTexts(offsets)};
}

}  // namespace

std::optional<Id3Text> id3OwnersData(std::string_view content) {
    Id3Fields fields(content);
    std::string owner = fields.latin();
    return Id3Text{std::move(owner), dataText(fields.rest())};
}

std::optional<Id3Text> id3Encryption(std::string_view content) {
    return registration(content, "method");
}

std::optional<Id3Text> id3Group(std::string_view content) { return registration(content, "group"); }

std::optional<Id3Text> id3Signature(std::string_view content) {
    Id3Fields fields(content);
    const std::string group = "group " + std::to_string(fields.number(1));
    return Id3Text{group, hexText(fields.rest())};
}

std::optional<Id3Text> id3PlayCounter(std::string_view content) {
    const auto count = wholeNumber(content);
    if (!count) return std::nullopt;
    return Id3Text{{}, std::to_string(*count)};
}

std::optional<Id3Text> id3Popularimeter(std::string_view content) {
    Id3Fields fields(content);
    std::string owner = fields.latin();
    std::vector<std::string> parts;
    // 0 stands for none.
    const std::uint64_t rating = fields.number(1);
    if (rating != 0) parts.push_back("rating " + std::to_string(rating));
    const auto count = wholeNumber(fields.rest());
    if (count) parts.push_back("played " + std::to_string(*count));
    return Id3Text{std::move(owner), joinedTexts(parts)};
}

std::optional<Id3Text> id3MusicCd(std::string_view content) {
    std::string text = readableText(content);
    if (!text.empty()) return Id3Text{{}, std::move(text)};
    return trackOffsets(content);
}

std::optional<Id3Text> id3Ownership(std::string_view content) {
    Id3Fields fields(content);
    fields.takeEncoding();
    std::vector<std::string> parts = {fields.latin()};
    parts.push_back(dateText(fields.bytes(8)));
    parts.push_back(fields.text());
    return Id3Text{{}, joinedTexts(parts)};
}

std::optional<Id3Text> id3Commercial(std::string_view content) {
    constexpr std::array<std::string_view, 9> deliveries = {
        "",
        "standard CD album with other songs",
        "compressed audio on CD",
        "file over the Internet",
        "stream over the Internet",
        "as note sheets",
        "as note sheets in a book with other sheets",
        "music on other media",
        "non-musical merchandise",
    };
    Id3Fields fields(content);
    fields.takeEncoding();
    std::vector<std::string> parts = {fields.latin()};
    const std::string validUntil = dateText(fields.bytes(8));
    if (!validUntil.empty()) parts.push_back("valid until " + validUntil);
    parts.push_back(fields.latin());
    const auto delivery = static_cast<std::size_t>(fields.number(1));
    if (delivery < deliveries.size()) parts.emplace_back(deliveries[delivery]);
    parts.push_back(fields.text());
    parts.push_back(fields.text());
    return Id3Text{{}, joinedTexts(parts)};
}

}  // namespace marquell::helpers
