// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/ZipArchive.h"

#include <zlib.h>

#include <algorithm>
#include <array>

#include "helpers/common/Numbers.h"

namespace marquell::helpers {
namespace {

// No document comes near: this is a hundred thousand members with long names.
constexpr std::size_t maximumDirectory = std::size_t{16} * 1024 * 1024;

constexpr std::string_view endSignature = "PK\x05\x06";
constexpr std::string_view end64Signature = "PK\x06\x06";
constexpr std::string_view locator64Signature = "PK\x06\x07";
constexpr std::string_view entrySignature = "PK\x01\x02";
constexpr std::string_view memberSignature = "PK\x03\x04";
constexpr std::size_t endLength = 22;
constexpr std::size_t locator64Length = 20;
constexpr std::size_t entryLength = 46;
constexpr std::size_t memberLength = 30;

constexpr std::uint64_t most16 = 0xFFFF;
constexpr std::uint64_t most32 = 0xFFFFFFFF;

/// Where the directory is, as the record at the end has it.
struct Place {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
};

/// The record for archives beyond 4 GB, which some programs write for all. Its locator precedes the
/// usual one.
std::optional<Place> place64(Input& input, std::uint64_t end) {
    if (end < locator64Length) return std::nullopt;
    const std::string locator = input.bytesAt(end - locator64Length, locator64Length);
    if (!locator.starts_with(locator64Signature)) return std::nullopt;
    const std::string record = input.bytesAt(littleEndian(locator, 8, 8), 56);
    if (record.size() < 56 || !record.starts_with(end64Signature)) return std::nullopt;
    return Place{littleEndian(record, 48, 8), littleEndian(record, 40, 8)};
}

/// A comment of up to 64 KB may follow the record.
std::optional<Place> findPlace(Input& input) {
    const std::uint64_t length = std::min<std::uint64_t>(input.size(), endLength + most16);
    const std::uint64_t begin = input.size() - length;
    const std::string tail = input.bytesAt(begin, static_cast<std::size_t>(length));
    const std::size_t found = tail.rfind(endSignature);
    if (found == std::string::npos || tail.size() - found < endLength) return std::nullopt;
    const Place place{littleEndian(tail, found + 16, 4), littleEndian(tail, found + 12, 4)};
    const bool isFull = place.offset == most32 || place.length == most32;
    return isFull ? place64(input, begin + found) : place;
}

/// Replaces what did not fit into the entry by what its extra field has.
void widen(std::string_view extra, std::uint64_t unpacked, std::uint64_t& length,
           std::uint64_t& offset) {
    constexpr std::uint64_t wideNumbers = 1;
    while (extra.size() >= 4) {
        const std::uint64_t size = littleEndian(extra, 2, 2);
        if (size > extra.size() - 4) return;
        if (littleEndian(extra, 0, 2) == wideNumbers) {
            const std::string_view content = extra.substr(4, size);
            std::size_t position = unpacked == most32 ? 8 : 0;
            if (length == most32) {
                length = littleEndian(content, position, 8);
                position += 8;
            }
            if (offset == most32) offset = littleEndian(content, position, 8);
            return;
        }
        extra.remove_prefix(4 + size);
    }
}

/// Unpacks at most `length` bytes at the offset into at most `maximum`.
std::string inflated(Input& input, std::uint64_t offset, std::uint64_t length,
                     std::size_t maximum) {
    z_stream stream{};
    constexpr int withoutHeader = -MAX_WBITS;
    if (inflateInit2(&stream, withoutHeader) != Z_OK) return {};
    std::string content;
    std::array<unsigned char, 16384> unpacked{};
    int state = Z_OK;
    while (state == Z_OK && content.size() < maximum) {
        const std::string packed = input.bytesAt(
            offset, static_cast<std::size_t>(std::min<std::uint64_t>(length, unpacked.size())));
        if (packed.empty()) break;
        offset += packed.size();
        length -= packed.size();
        // zlib does not write here, whatever the type of the pointer says
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
        stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(packed.data()));
        stream.avail_in = static_cast<uInt>(packed.size());
        do {
            stream.next_out = unpacked.data();
            stream.avail_out = static_cast<uInt>(unpacked.size());
            state = inflate(&stream, Z_NO_FLUSH);
            const std::size_t count = unpacked.size() - stream.avail_out;
            content.append(reinterpret_cast<const char*>(unpacked.data()), count);
        } while (state == Z_OK && stream.avail_out == 0 && content.size() < maximum);
        // All was unpacked that there is of these bytes.
        if (state == Z_BUF_ERROR) state = Z_OK;
    }
    inflateEnd(&stream);
    content.resize(std::min(content.size(), maximum));
    return content;
}

}  // namespace

ZipArchive::ZipArchive(Input& input) : input_(input) {
    const auto place = findPlace(input);
    if (!place) return;
    directory_ = input.bytesAt(place->offset, static_cast<std::size_t>(std::min<std::uint64_t>(
                                                  place->length, maximumDirectory)));
    if (!directory_.starts_with(entrySignature)) directory_.clear();
}

std::optional<ZipArchive::Entry> ZipArchive::find(std::string_view name) const {
    std::string_view rest = directory_;
    while (rest.size() >= entryLength && rest.starts_with(entrySignature)) {
        const std::uint64_t nameLength = littleEndian(rest, 28, 2);
        const std::uint64_t extraLength = littleEndian(rest, 30, 2);
        const std::uint64_t whole =
            entryLength + nameLength + extraLength + littleEndian(rest, 32, 2);
        if (whole > rest.size()) break;
        if (rest.substr(entryLength, nameLength) == name) {
            const bool isEncrypted = (littleEndian(rest, 8, 2) & 1) != 0;
            if (isEncrypted) return std::nullopt;
            Entry entry{littleEndian(rest, 10, 2), littleEndian(rest, 20, 4),
                        littleEndian(rest, 42, 4)};
            widen(rest.substr(entryLength + nameLength, extraLength), littleEndian(rest, 24, 4),
                  entry.length, entry.offset);
            return entry;
        }
        rest.remove_prefix(whole);
    }
    return std::nullopt;
}

std::string ZipArchive::member(std::string_view name, std::size_t maximum) const {
    const auto entry = find(name);
    if (!entry || entry->offset >= input_.size()) return {};
    const std::string header = input_.bytesAt(entry->offset, memberLength);
    if (header.size() < memberLength || !header.starts_with(memberSignature)) return {};
    const std::uint64_t content =
        entry->offset + memberLength + littleEndian(header, 26, 2) + littleEndian(header, 28, 2);
    // Packed bytes can be there that unpack to nothing: no more of them than of the others.
    const std::uint64_t length = std::min<std::uint64_t>(entry->length, maximum);
    constexpr std::uint64_t stored = 0;
    constexpr std::uint64_t deflated = 8;
    if (entry->method == stored) return input_.bytesAt(content, static_cast<std::size_t>(length));
    if (entry->method == deflated) return inflated(input_, content, length, maximum);
    return {};
}

}  // namespace marquell::helpers
