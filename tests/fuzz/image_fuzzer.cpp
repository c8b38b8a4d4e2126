// SPDX-License-Identifier: GPL-3.0-or-later
// An image file, as the helper reads it. Exiv2 comes as the system has it, without the sanitizers.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "helpers/image/ImageReader.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    marquell::helpers::prepareImageReader();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell;
    helpers::MemoryInput input({reinterpret_cast<const char*>(data), size});
    if (const auto properties = helpers::readImage(input, "jpg")) {
        const auto decoded = platform::decodeProperties(platform::encodeProperties(*properties));
        // What the reader makes is what the program takes.
        if (!decoded || decoded->size() != properties->size()) __builtin_trap();
    }
    return 0;
}
