// SPDX-License-Identifier: GPL-3.0-or-later
// An image file, after one byte that chooses the extension of its name.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "helpers/image/ImageHeader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell::helpers;
    if (size == 0) return 0;
    constexpr std::array<std::string_view, 4> extensions = {"", "jpg", "tga", "heic"};
    const std::string_view extension = extensions[data[0] % extensions.size()];
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    MemoryInput input(bytes);
    const ImageHeader header = readImageHeader(input, imageKindOf(input, extension));
    static_cast<void>(describeColorProfile(header.colorProfile));
    static_cast<void>(describeColorProfile(std::string(bytes)));
    static_cast<void>(readHeifMetadata(input));
    return 0;
}
