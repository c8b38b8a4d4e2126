// SPDX-License-Identifier: GPL-3.0-or-later
// A web page.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "helpers/documents/DocumentReaders.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell;
    helpers::MemoryInput input({reinterpret_cast<const char*>(data), size});
    if (const auto properties = helpers::webPageIndex(input)) {
        const auto decoded = platform::decodeProperties(platform::encodeProperties(*properties));
        // What the reader makes is what the program takes.
        if (decoded != properties) __builtin_trap();
    }
    return 0;
}
