// SPDX-License-Identifier: GPL-3.0-or-later
// A sound or video file.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "helpers/sound/SoundStream.h"
#include "helpers/sound/SoundTagIndex.h"

namespace {

/// What the reader makes is what the program takes.
void check(const marquell::platform::PropertyDictionary& properties) {
    using namespace marquell::platform;
    const auto decoded = decodeProperties(encodeProperties(properties));
    if (!decoded || decoded->size() != properties.size()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell;
    helpers::MemoryInput input({reinterpret_cast<const char*>(data), size});
    const helpers::SoundTags tags = helpers::readSoundTags(input, "mp3");
    check(helpers::soundTagProperties(tags));
    platform::PropertyDictionary index;
    helpers::addSoundTagIndex(index, tags);
    check(index);
    static_cast<void>(helpers::readSoundStream(input));
    return 0;
}
