// SPDX-License-Identifier: GPL-3.0-or-later
// What a process that reads files answers to the program.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/PropertyDictionary.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell::platform;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto properties = decodeProperties(bytes);
    if (!properties) return 0;
    if (decodeProperties(encodeProperties(*properties)) != properties) std::abort();
    return 0;
}
