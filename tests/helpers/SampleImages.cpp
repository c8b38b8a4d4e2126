// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/SampleImages.h"

#include "helpers/Bytes.h"

namespace marquell::helpers {
namespace {

using std::string_literals::operator""s;

std::string profileAround(const std::string& description, std::uint64_t version) {
    const std::size_t start = 144;
    std::string header = big(start + description.size(), 4) + zeros(4) + big(version, 4);
    header += "mntrRGB XYZ " + zeros(12) + "acsp";
    header.resize(128);
    return header + big(1, 4) + "desc" + big(start, 4) + big(description.size(), 4) + description;
}

std::string jpeg() {
    // The profile in two pieces, the second first; bytes that belong to nothing; fill bytes.
    const std::string profile = sampleProfile("A profile");
    return "\xFF\xD8"s + jpegSegment(0xE0, "JFIF\0\1\2\2"s + big(118, 2) + big(59, 2) + "\0\0"s) +
           jpegSegment(0xE2, "ICC_PROFILE\0\2\2"s + profile.substr(100)) + "garbage\xFF\0"s +
           jpegSegment(0xE2, "ICC_PROFILE\0\1\2"s + profile.substr(0, 100)) + "\xFF\xFF\xFF" +
           jpegSegment(0xC2, big(12, 1) + big(20, 2) + big(30, 2) + big(1, 1) + zeros(3)) +
           "\xFF\xDA"s;
}

std::string png(std::uint64_t depth, std::uint64_t colorType) {
    const std::string basics =
        big(30, 4) + big(20, 4) + big(depth, 1) + big(colorType, 1) + zeros(3);
    return "\x89PNG\r\n\x1A\n"s + pngChunk("IHDR", basics) +
           pngChunk("pHYs", big(11811, 4) + big(2835, 4) + big(1, 1)) + pngChunk("IDAT", {});
}

std::string bmp(std::uint64_t bits, std::uint64_t compression, std::uint64_t greenMask) {
    const std::string profile = sampleProfile("A profile");
    std::string header = little(124, 4) + little(30, 4) + little(std::uint64_t{0} - 20, 4);
    header += little(1, 2) + little(bits, 2) + little(compression, 4) + zeros(4);
    header += little(2835, 4) + little(11811, 4) + zeros(8);
    header += little(0xF800, 4) + little(greenMask, 4) + little(0x1F, 4) + zeros(4) + "DEBM";
    header.resize(112);
    header += little(124, 4) + little(profile.size(), 4) + zeros(4);
    return "BM" + zeros(12) + header + profile;
}

std::string oldBmp() {
    return "BM" + zeros(12) + little(12, 4) + little(30, 2) + little(20, 2) + little(1, 2) +
           little(4, 2);
}

std::string psd(std::uint64_t version) {
    const auto resource = [](std::uint64_t id, const std::string& content) {
        return "8BIM" + big(id, 2) + "\3abc" + big(content.size(), 4) + content +
               zeros(content.size() % 2);
    };
    const std::string resolution = big(300 << 16, 4) + big(2, 2) + big(1, 2);
    const std::string resources = resource(1, "odd") + resource(0x03ED, resolution + resolution) +
                                  resource(0x040F, sampleProfile("A profile"));
    return "8BPS" + big(version, 2) + zeros(6) + big(3, 2) + big(20, 4) + big(30, 4) + big(16, 2) +
           big(3, 2) + big(2, 4) + "??" + big(resources.size(), 4) + resources;
}

std::string webp(const std::string& pixels) {
    const auto chunk = [](const std::string& type, const std::string& content) {
        return type + little(content.size(), 4) + content + zeros(content.size() % 2);
    };
    const std::string profile = chunk("ICCP", sampleProfile("A profile"));
    const std::string canvas = chunk("VP8X", zeros(4) + little(29, 3) + little(19, 3));
    const std::string chunks = pixels.empty() ? canvas + profile + chunk("VP8 ", zeros(10))
                                              : chunk(pixels.substr(0, 4), pixels.substr(4));
    return "RIFF" + little(4 + chunks.size(), 4) + "WEBP" + chunks;
}

std::string ico(const std::string& image) {
    return little(0, 2) + little(2, 2) + little(1, 2) + "\x1E\x14\0\0"s + zeros(4) +
           little(image.size(), 4) + little(22, 4) + image;
}

std::string tga(std::uint64_t bits) {
    return "\0\0\x0A"s + zeros(9) + little(30, 2) + little(20, 2) + little(bits, 1) + zeros(1);
}

std::string jp2() {
    const std::string resolution = big(11811, 2) + big(10, 2) + big(2835, 2) + big(1, 2) + "\1\0"s;
    return "\0\0\0\x0CjP  \r\n\x87\n"s + box("ftyp", "jp2 \0\0\0\0jp2 "s) +
           box("jp2h", box("ihdr", big(20, 4) + big(30, 4) + big(3, 2) + "\xFF\7\0\0"s) +
                           box("bpcc", "\x0B\7\7") + box("res ", box("resc", resolution)) +
                           box("colr", "\2\0\0"s + sampleProfile("A profile"))) +
           box("jp2c");
}

std::string codeStream() {
    return "\xFF\x4F\xFF\x51"s + big(41, 2) + zeros(2) + big(35, 4) + big(26, 4) + big(5, 4) +
           big(6, 4) + zeros(16) + big(1, 2) + "\x89\1\1";
}

std::string heif() {
    const std::string properties =
        box("ipco", box("free") + fullBox("ispe", big(30, 4) + big(20, 4)) +
                        fullBox("pixi", "\3\x0A\x0A\x0A") +
                        box("colr", "prof" + sampleProfile("A profile"))) +
        fullBox("ipma", big(1, 4) + big(7, 2) + "\3\x82\3\4");
    return heifFile(fullBox("pitm", big(7, 2)) + box("iprp", properties));
}

/// With numbers in an order of bytes.
std::string bigTiff(std::string number(std::uint64_t, std::size_t)) {
    const std::string profile = sampleProfile("A profile");
    const auto field = [number](std::uint64_t tag, std::uint64_t type, std::uint64_t count,
                                std::string value) {
        value.resize(8);
        return number(tag, 2) + number(type, 2) + number(count, 8) + value;
    };
    const std::string fields =
        field(0x0100, 4, 1, number(30, 4)) + field(0x0101, 3, 1, number(20, 2)) +
        field(0x0102, 3, 3, number(16, 2) + number(16, 2) + number(16, 2)) +
        field(0x011A, 5, 1, number(600, 4) + number(2, 4)) +
        field(0x011B, 5, 1, number(72, 4) + number(1, 4)) + field(0x0128, 3, 1, number(2, 2)) +
        field(0x8773, 7, profile.size(), number(16 + 8 + 7 * 20, 8));
    return (number(1, 2) == big(1, 2) ? "MM" : "II") + number(43, 2) + number(8, 2) + zeros(2) +
           number(16, 8) + number(7, 8) + fields + profile;
}

}  // namespace

std::string sampleProfile(const std::string& description) {
    return profileAround(
        "desc" + zeros(4) + big(description.size() + 1, 4) + description + '\0' + zeros(78),
        0x02100000);
}

std::string sampleWideProfile(const std::string& units) {
    return profileAround("mluc" + zeros(4) + big(1, 4) + big(12, 4) + "enUS" +
                             big(units.size(), 4) + big(28, 4) + units,
                         0x04200000);
}

std::string pngChunk(const std::string& type, const std::string& content) {
    return big(content.size(), 4) + type + content + "crc!";
}

std::string jpegSegment(std::uint8_t marker, const std::string& content) {
    return "\xFF" + big(marker, 1) + big(content.size() + 2, 2) + content;
}

std::string heifFile(const std::string& children, const std::string& brands) {
    return box("ftyp", brands) + fullBox("meta", children);
}

std::string heifItem(std::uint32_t id, const std::string& type, const std::string& more) {
    return fullBox("infe", big(id, 2) + zeros(2) + type + "name\0"s + more, 2);
}

std::vector<SampleImage> sampleImages() {
    const std::string lossy = "VP8 \0\0\0\x9D\1\x2A\x1E\x40\x14\x80"s;
    return {
        {"jpeg", jpeg(), ImageKind::jpeg, 12, 118 * 2.54, 59 * 2.54, true, ""},
        {"png", png(16, 2), ImageKind::png, 16, 300, 72, false, ""},
        {"png with a palette", png(2, 3), ImageKind::png, 8, 300, 72, false, ""},
        {"gif", "GIF89a" + little(30, 2) + little(20, 2), ImageKind::gif, 8, 0, 0, false, ""},
        {"bmp", bmp(24, 0, 0), ImageKind::bmp, 8, 72, 300, true, ""},
        {"bmp with masks", bmp(16, 3, 0x7E0), ImageKind::bmp, 5, 72, 300, true, ""},
        {"bmp, oldest", oldBmp(), ImageKind::bmp, 8, 0, 0, false, ""},
        {"psd", psd(1), ImageKind::psd, 16, 300, 300, true, ""},
        {"psb", psd(2), ImageKind::psd, 16, 300, 300, true, ""},
        {"webp, extended", webp({}), ImageKind::webp, 8, 0, 0, true, ""},
        {"webp, lossy", webp(lossy), ImageKind::webp, 8, 0, 0, false, ""},
        {"webp, lossless", webp("VP8L\x2F\x1D\xC0\4\0"s), ImageKind::webp, 8, 0, 0, false, ""},
        {"ico", ico(little(40, 4) + zeros(36)), ImageKind::ico, 8, 0, 0, false, ""},
        {"ico of a png", ico(png(16, 2)), ImageKind::ico, 8, 0, 0, false, ""},
        {"tga", tga(24), ImageKind::tga, 8, 0, 0, false, "tga"},
        {"tga, 16 bits", tga(16), ImageKind::tga, 5, 0, 0, false, "vst"},
        {"jp2", jp2(), ImageKind::jp2, 12, 72, 300, true, ""},
        {"jp2, bare", codeStream(), ImageKind::jp2, 10, 0, 0, false, ""},
        {"bigtiff", bigTiff(big), ImageKind::tiff, 16, 300, 72, true, ""},
        {"bigtiff, little-endian", bigTiff(little), ImageKind::tiff, 16, 300, 72, true, ""},
        {"heif", heif(), ImageKind::heif, 10, 0, 0, true, ""},
    };
}

}  // namespace marquell::helpers
