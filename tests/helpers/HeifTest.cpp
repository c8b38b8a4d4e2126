// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <tuple>

#include "helpers/Bytes.h"
#include "helpers/SampleImages.h"
#include "helpers/image/ImageHeader.h"

namespace marquell::helpers {
namespace {

using std::string_literals::operator""s;

const std::string tiff = "II*\0\x08\0\0\0\0\0"s;
const std::string packet = "<x:xmpmeta/>";
const std::string primary = fullBox("pitm", big(1, 2));

HeifMetadata metadataOf(const std::string& bytes) {
    MemoryInput input(bytes);
    return readHeifMetadata(input);
}

ImageHeader headerOf(const std::string& bytes) {
    MemoryInput input(bytes);
    return readImageHeader(input, ImageKind::heif);
}

std::string itemList(const std::string& items) { return fullBox("iinf", big(9, 2) + items); }

/// The place of one item in the `idat` box, in two extents, with wide numbers.
std::string placeInMeta(std::uint64_t id, std::uint64_t offset, std::uint64_t length) {
    return big(id, 2) + big(1, 2) + zeros(2) + big(offset, 8) + big(2, 2) + big(0, 8) + big(3, 8) +
           big(3, 8) + big(length - 3, 8);
}

std::string placesInMeta(std::uint64_t count, const std::string& places) {
    return fullBox("iloc", "\x88\x80"s + big(count, 2) + places, 1);
}

TEST(HeifMetadata, ComesFromTheItemThatDescribesThePrimaryOne) {
    const std::string other = zeros(4) + "MM\0*other"s;
    const std::string exif = big(6, 4) + "Exif\0\0"s + tiff;
    const std::string items =
        itemList(heifItem(1, "hvc1") + heifItem(2, "Exif") + heifItem(3, "Exif") +
                 heifItem(4, "mime", "application/rdf+xml\0"s) +
                 heifItem(5, "mime", "application/rdf+xml\0deflate\0"s));
    const std::string places = placesInMeta(
        3, placeInMeta(2, 0, other.size()) + placeInMeta(3, other.size(), exif.size()) +
               placeInMeta(4, other.size() + exif.size(), packet.size()));
    const std::string data = box("idat", other + exif + packet);
    const std::string reference =
        fullBox("iref", box("cdsc", big(2, 2) + big(1, 2) + big(9, 2)) +
                            box("cdsc", big(3, 2) + big(2, 2) + big(8, 2) + big(1, 2)));
    const HeifMetadata found = metadataOf(heifFile(primary + items + reference + places + data));
    EXPECT_EQ(found.exif, tiff);
    EXPECT_EQ(found.xmp, packet);
    EXPECT_EQ(metadataOf(heifFile(primary + items + places + data)).exif, other.substr(4))
        << "the first, if none says what it describes";
}

/// A file with an Exif item of `length` bytes at `offset` of the file, behind the boxes.
std::string fileWithPlace(std::uint64_t version, std::uint64_t method, std::uint64_t base,
                          std::uint64_t offset, std::uint64_t length) {
    const std::size_t idLength = version == 2 ? 4 : 2;
    const std::string place = big(2, idLength) + (version == 0 ? "" : big(method, 2)) + zeros(2) +
                              big(base, 4) + big(1, 2) + big(offset, 4) + big(length, 4);
    std::string bytes = heifFile(itemList(heifItem(2, "Exif")) +
                                 fullBox("iloc", "\x44\x40"s + big(1, idLength) + place, version));
    bytes.resize(200);
    return bytes + zeros(4) + tiff;
}

TEST(HeifMetadata, IsReadFromAnywhereInTheFileButNotOutside) {
    const std::uint64_t whole = 4 + tiff.size();
    for (const auto& [version, method, base, offset, length, isFound] :
         {std::tuple{0U, 0U, 0U, 200U, whole, true},
          {1U, 0U, 150U, 50U, whole, true},
          {2U, 0U, 200U, 0U, whole, true},
          {1U, 0U, 0U, 200U, 0U, true},  // all that follows
          {3U, 0U, 0U, 200U, whole, false},
          {1U, 1U, 0U, 200U, whole, false},  // in a box that isn't there
          {1U, 2U, 0U, 200U, whole, false},  // in another item
          {1U, 0U, 0U, 200U, whole + 1, false},
          {1U, 0U, 0xFFFFFFFFU, 0xFFFFFFFFU, whole, false},
          {1U, 0U, 0U, 200U, 0xFFFFFFFFU, false}}) {
        EXPECT_EQ(metadataOf(fileWithPlace(version, method, base, offset, length)).exif,
                  isFound ? tiff : "")
            << version << ' ' << method << ' ' << base << ' ' << offset << ' ' << length;
    }
}

std::string propertiesOf(const std::string& boxes, const std::string& associations) {
    return box("iprp", box("ipco", boxes) + fullBox("ipma", associations));
}

TEST(HeifHeader, TakesFromTheTilesWhatTheWholeDoesNotSay) {
    const std::string content = "\0\0\1\1"s + big(3000, 2) + big(2000, 2);
    const std::string grid = placesInMeta(1, placeInMeta(1, 0, content.size())) +
                             box("idat", content) +
                             fullBox("iref", box("dimg", big(1, 2) + big(1, 2) + big(2, 2)));
    const std::string associations = big(1, 4) + big(2, 2) + "\1\1";
    for (const auto& [decoder, depth] : {std::pair{box("hvcC", zeros(17) + "\xFA"), 10U},
                                         {box("av1C", "\x81\0\x0C"s), 8U},
                                         {box("av1C", "\x81\0\x60"s), 12U}}) {
        const ImageHeader header =
            headerOf(heifFile(primary + grid + propertiesOf(decoder, associations)));
        EXPECT_EQ(header.pixelWidth, 3000U);
        EXPECT_EQ(header.pixelHeight, 2000U);
        EXPECT_EQ(header.depth, depth);
    }
}

TEST(HeifHeader, DoesNotGoAstrayOnBoxes) {
    const std::string size = fullBox("ispe", big(30, 4) + big(20, 4));
    const std::string first = big(1, 4) + big(1, 2) + "\1\1";
    const std::string good = primary + propertiesOf(size, first);
    std::string nested;
    std::string siblings;
    for (std::size_t left = 100'000; left > 0; --left) nested += big(8 * left, 4) + "meta";
    for (int count = 0; count < 9'000; ++count) siblings += box("free");
    for (const auto& [bytes, isRead] :
         {std::pair{heifFile(good), true},
          {heifFile(siblings + good), true},
          {heifFile(siblings + siblings + good), false},
          {heifFile(big(1, 4) + "free" + big(16, 8) + good), true},
          {heifFile(big(1, 4) + "free" + big(15, 8) + good), false},
          {heifFile(big(1, 4) + "free" + big(~std::uint64_t{0}, 8) + good), false},
          {heifFile(big(0, 4) + "free" + good), false},
          {heifFile(big(7, 4) + "free" + good), false},
          {heifFile(nested + good), true},
          {heifFile(primary + propertiesOf(size, big(1, 4) + big(1, 2) + "\2\0\2"s)), false},
          {heifFile(primary + propertiesOf(size, big(~0U, 4) + big(2, 2) + "\xFF\1")), false}}) {
        EXPECT_EQ(headerOf(bytes).pixelWidth.has_value(), isRead) << bytes.size();
    }
}

}  // namespace
}  // namespace marquell::helpers
