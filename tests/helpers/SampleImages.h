// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "helpers/image/ImageKind.h"

namespace marquell::helpers {

/// A small file of 30 x 20 pixels, and what its header says.
struct SampleImage {
    std::string name;
    std::string bytes;
    ImageKind kind = ImageKind::none;
    std::uint32_t depth = 8;
    double dpiWidth = 0;   ///< 0: says nothing
    double dpiHeight = 0;  ///< the same
    bool hasProfile = false;
    std::string extension;
};

/// One or more for each kind whose header is read.
std::vector<SampleImage> sampleImages();

/// A profile, old form, with a description of ASCII bytes.
std::string sampleProfile(const std::string& description);
/// A profile, new form, with a description of UTF-16 units, big-endian.
std::string sampleWideProfile(const std::string& units);

std::string pngChunk(const std::string& type, const std::string& content);
std::string jpegSegment(std::uint8_t marker, const std::string& content);

/// A HEIF file with the given boxes in its `meta` box.
std::string heifFile(const std::string& children, const std::string& brands = "mif1....heic");
/// An item as `iinf` lists it.
std::string heifItem(std::uint32_t id, const std::string& type, const std::string& more = {});

}  // namespace marquell::helpers
