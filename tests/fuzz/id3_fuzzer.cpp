// SPDX-License-Identifier: GPL-3.0-or-later
// An ID3v2 tag, and what may be an ID3v1 tag at its end.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "helpers/sound/Id3Tag.h"
#include "helpers/sound/Id3V1.h"
#include "platform/Utf8.h"

namespace {

void mustBeClean(std::string_view text) {
    const bool isClean = text.find('\0') == std::string_view::npos;
    if (!isClean || !marquell::platform::isValidUtf8(text)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell::helpers;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MemoryInput input(bytes);
    SoundTags tags;
    if (addId3Tag(tags, input, 0, size) > size) std::abort();
    addId3V1Tag(tags, input);
    for (const Id3Frame& frame : tags.id3) mustBeClean(frame.id + frame.text);
    for (const auto& [key, text] : tags.common) mustBeClean(text);
    mustBeClean(tags.lyrics + tags.comment);
    return 0;
}
