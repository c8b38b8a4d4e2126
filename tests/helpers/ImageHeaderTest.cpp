// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <span>
#include <tuple>
#include <utility>

#include "helpers/Bytes.h"
#include "helpers/SampleImages.h"
#include "helpers/image/ImageHeader.h"

namespace marquell::helpers {
namespace {

using std::string_literals::operator""s;

ImageKind kindOf(const std::string& bytes, std::string_view extension = {}) {
    MemoryInput input(bytes);
    return imageKindOf(input, extension);
}

ImageHeader headerOf(const std::string& bytes, std::string_view extension = {}) {
    MemoryInput input(bytes);
    return readImageHeader(input, imageKindOf(input, extension));
}

/// Everything that is read of a file, for what must only come back.
void readAll(const std::string& bytes, const std::string& extension) {
    const ImageHeader header = headerOf(bytes, extension);
    EXPECT_NE(header.pixelWidth, 0U);
    EXPECT_LE(header.depth.value_or(1), 128U);
    describeColorProfile(header.colorProfile);
    MemoryInput input(bytes);
    readHeifMetadata(input);
}

TEST(ImageHeader, SaysWhatTheContainerSays) {
    for (const SampleImage& sample : sampleImages()) {
        SCOPED_TRACE(sample.name);
        EXPECT_EQ(kindOf(sample.bytes, sample.extension), sample.kind);
        const ImageHeader header = headerOf(sample.bytes, sample.extension);
        EXPECT_EQ(header.pixelWidth, 30U);
        EXPECT_EQ(header.pixelHeight, 20U);
        EXPECT_EQ(header.depth, sample.depth);
        EXPECT_DOUBLE_EQ(header.dpiWidth.value_or(0), sample.dpiWidth);
        EXPECT_DOUBLE_EQ(header.dpiHeight.value_or(0), sample.dpiHeight);
        EXPECT_EQ(describeColorProfile(header.colorProfile).name,
                  sample.hasProfile ? "A profile" : "");
    }
}

TEST(ImageHeader, SurvivesFilesThatEndAnywhere) {
    for (const SampleImage& sample : sampleImages()) {
        SCOPED_TRACE(sample.name);
        for (std::size_t length = 0; length < sample.bytes.size(); ++length) {
            readAll(sample.bytes.substr(0, length), sample.extension);
        }
    }
}

TEST(ImageHeader, SurvivesFlippedBytes) {
    std::mt19937 random(1);
    for (const SampleImage& sample : sampleImages()) {
        SCOPED_TRACE(sample.name);
        for (int round = 0; round < 2'000; ++round) {
            std::string bytes = sample.bytes;
            for (auto flips = 1 + random() % 4; flips-- > 0;) {
                constexpr std::array<char, 4> edges = {'\0', '\1', '\x7F', '\xFF'};
                const bool isEdge = random() % 2 == 0;
                bytes[random() % bytes.size()] =
                    isEdge ? edges[random() % edges.size()] : static_cast<char>(random() & 0xFF);
            }
            readAll(bytes, sample.extension);
        }
    }
}

TEST(ImageHeader, LeavesOutWhatMakesNoSense) {
    const std::string noDensity = jpegSegment(0xE0, "JFIF\0\1\2\1"s + zeros(6));
    const std::string noUnit = jpegSegment(0xE0, "JFIF\0\1\2\0\0\1\0\1\0\0"s);
    const std::string frame = jpegSegment(0xC0, "\x08\0\0\0\x1E\1"s + zeros(3));
    for (const std::string& density : {noDensity, noUnit}) {
        const ImageHeader header = headerOf("\xFF\xD8" + density + frame);
        EXPECT_EQ(header.pixelWidth, 30U);
        EXPECT_FALSE(header.pixelHeight) << "told after the first scan";
        EXPECT_FALSE(header.dpiWidth);
    }
    const std::string profile = sampleProfile("A profile");
    const std::string half = jpegSegment(0xE2, "ICC_PROFILE\0\1\2"s + profile.substr(0, 100));
    EXPECT_EQ(headerOf("\xFF\xD8" + half + frame).colorProfile, "") << "one piece of two";
}

TEST(ImageHeader, MetricDensitiesOfWholeDotsPerInchAreWhole) {
    for (const auto& [density, unitsPerInch, dpi] : {std::tuple{11811.0, 0.0254, 300.0},
                                                     {2835.0, 0.0254, 72.0},
                                                     {10000.0, 0.0254, 254.0},
                                                     {3790.0, 0.0254, 3790 * 0.0254},
                                                     {118.11, 2.54, 300.0},
                                                     {0.1, 0.0254, 0.1 * 0.0254},
                                                     {0.0, 0.0254, 0.0},
                                                     {-5.0, 1.0, 0.0}}) {
        EXPECT_DOUBLE_EQ(dpiFromMetric(density, unitsPerInch).value_or(0), dpi) << density;
    }
}

TEST(ImageKind, ComesFromTheContent) {
    using enum ImageKind;
    const std::string header = "II*\0\x10\0\0\0"s;
    for (const auto& [bytes, extension, kind] :
         {std::tuple{header + zeros(8), "jpg", ImageKind::tiff},
          {header + "CR\2\0"s, "tif", cr2},
          {"MM\0*"s, "", ImageKind::tiff},
          {"II+\0"s, "", ImageKind::tiff},
          {"IIRS"s, "", orf},
          {"IIU\0"s, "", rw2},
          {"FUJIFILMCCD-RAW 0201"s, "", raf},
          {"BM and no bitmap, but a text of some length"s, "bmp", none},
          {"\0\0\1\xBA a film of the old kind, longer than a header"s, "ico", none},
          {"RIFF\0\0\0\0AVI LIST"s, "webp", none},
          {"a text that is named like an image"s, "tga", none},
          {sampleImages().at(14).bytes, "raw", none},
          {""s, "tga", none}}) {
        EXPECT_EQ(kindOf(bytes, extension), kind) << testing::PrintToString(bytes);
    }
}

TEST(ImageKind, OfBoxesGoesByTheMajorBrand) {
    const std::string primary = fullBox("pitm", big(1, 2));
    for (const auto& [brands, hasPrimary, isHeif] : {std::tuple{"heic....mif1", false, true},
                                                     {"avif....", false, true},
                                                     {"mif1....heic", true, true},
                                                     {"mif1....heic", false, false},
                                                     {"msf1....iso8mif1", true, true},
                                                     {"avis....msf1avif", true, true},
                                                     {"avis....msf1avif", false, false},
                                                     {"avis....msf1iso8", true, false},
                                                     {"mp42....isommif1", true, false},
                                                     {"qt  ....heic", true, false},
                                                     {"M4A ....", true, false}}) {
        const std::string bytes = heifFile(hasPrimary ? primary : "", brands);
        EXPECT_EQ(kindOf(bytes, "heic"), isHeif ? ImageKind::heif : ImageKind::none) << brands;
    }
    EXPECT_EQ(kindOf(heifFile({}, "crx ....")), ImageKind::cr3);
}

TEST(ColorProfile, NamesAreCleanText) {
    EXPECT_EQ(describeColorProfile(sampleProfile("  A\tprofile\x01  ")).name, "Aprofile");
    EXPECT_EQ(describeColorProfile(sampleProfile(" ")).name, "");
    EXPECT_EQ(describeColorProfile(sampleProfile("Caf\xE9")).name, "Café");
    const std::string wide = "\0a\xD8\x3D\xDE\x00\0\n\x20\xAC"s;
    EXPECT_EQ(describeColorProfile(sampleWideProfile(wide)).name, "a\U0001F600\u20AC");
    for (const std::string& whole : {sampleProfile("A profile"), sampleWideProfile(wide)}) {
        for (std::size_t length = 0; length < 144; ++length) {
            EXPECT_EQ(describeColorProfile(whole.substr(0, length)).name, "") << length;
        }
        for (std::size_t length = 144; length < whole.size(); ++length) {
            describeColorProfile(whole.substr(0, length));
        }
    }
}

/// A file without end: a start, and then the same bytes again at every multiple of a period.
class EndlessInput : public Input {
public:
    EndlessInput(std::string start, std::string pattern, std::uint64_t period)
        : Input(std::uint64_t{1} << 50),
          start_(std::move(start)),
          pattern_(std::move(pattern)),
          period_(period) {}

    std::size_t fetches() const { return fetches_; }
    std::string_view allBytes() override { return {}; }

private:
    std::size_t fetch(std::uint64_t offset, std::span<char> buffer) override {
        ++fetches_;
        std::ranges::fill(buffer, '\0');
        place(start_, 0, offset, buffer);
        const std::uint64_t passed = offset > start_.size() ? offset - start_.size() : 0;
        std::uint64_t at = start_.size() + passed / period_ * period_;
        for (; at < offset + buffer.size(); at += period_) place(pattern_, at, offset, buffer);
        return buffer.size();
    }

    /// Puts the part of `bytes`, which begin at `at`, that falls into the buffer there.
    static void place(const std::string& bytes, std::uint64_t at, std::uint64_t offset,
                      std::span<char> buffer) {
        const std::uint64_t end = std::min(at + bytes.size(), offset + buffer.size());
        for (std::uint64_t i = std::max(at, offset); i < end; ++i)
            buffer[i - offset] = bytes[i - at];
    }

    const std::string start_;
    const std::string pattern_;
    const std::uint64_t period_;
    std::size_t fetches_ = 0;
};

TEST(ImageHeader, GivesUpAfterSoManySteps) {
    struct Row {
        std::string start;
        std::string pattern;
        std::uint64_t period;
    };
    const std::string meta = big(1, 4) + "meta" + big(std::uint64_t{1} << 49, 8) + zeros(4);
    const std::string jp2 = "\0\0\0\x0CjP  \r\n\x87\n"s;
    // Siblings, each beyond what is read at once; and boxes of 8 bytes, and bytes that are none.
    for (const Row& row : {Row{"\xFF\xD8", "\xFF\xE5\xFF\xFF", 65537},
                           {"\xFF\xD8\xFF", "x", 3},
                           {"\x89PNG\r\n\x1A\n", "\0\xFF\0\0none"s, 0xFF000C},
                           {"RIFF....WEBP", "none\0\0\0\1"s, 0x1000008},
                           {jp2, "\0\0\x80\0none"s, 0x8000},
                           {box("ftyp", "heic....") + meta, "\0\0\x80\0none"s, 0x8000},
                           {box("ftyp", "mif1....heic") + meta, "\0\0\0\x08none"s, 8}}) {
        EndlessInput input(row.start, row.pattern, row.period);
        const ImageKind kind = imageKindOf(input, {});
        readImageHeader(input, kind);
        readHeifMetadata(input);
        EXPECT_LE(input.fetches(), 50'000U) << testing::PrintToString(row.start);
    }
}

}  // namespace
}  // namespace marquell::helpers
