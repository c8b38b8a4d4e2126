// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/StreamReaders.h"

#include <poppler-document.h>
#include <poppler-global.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IndexAttributes.h"

extern "C" {
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

namespace marquell::helpers {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view sampleSound =
    ".snd\0\0\0\x1C\0\0\0\x10\0\0\0\x03\0\0\x1F\x40\0\0\0\x01\0\0\0\0"
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv;

constexpr std::string_view sampleDocument =
    "%PDF-1.4\n"
    "1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
    "2 0 obj<</Type/Pages/Kids[]/Count 0>>endobj\n"
    "3 0 obj<</Title(Sample)>>endobj\n"
    "xref\n0 4\n0000000000 65535 f \n0000000009 00000 n \n0000000052 00000 n \n"
    "0000000096 00000 n \ntrailer<</Size 4/Root 1 0 R/Info 3 0 R>>\nstartxref\n128\n%%EOF\n"sv;

bool hasText(const std::optional<platform::PropertyDictionary>& index,
             platform::IndexAttribute attribute, const platform::PropertyValue& expected) {
    if (!index) return false;
    const auto found = index->find(static_cast<platform::PropertyKey>(attribute));
    return found != index->end() && found->second == expected;
}

}  // namespace

void prepareStreamReaders() {
    constexpr std::size_t largestBlock = std::size_t{256} << 20;
    av_log_set_level(AV_LOG_QUIET);
    av_max_alloc(largestBlock);
    poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
    // Kept open: with its last document the library drops tables, and the list of encodings that it
    // has read from files.
    static const std::unique_ptr<const poppler::document> kept(
        poppler::document::load_from_raw_data(sampleDocument.data(),
                                              static_cast<int>(sampleDocument.size())));
}

bool readsSampleStreams() {
    MemoryInput sound(sampleSound);
    MemoryInput document(sampleDocument);
    return hasText(streamIndex(sound, "au"), platform::IndexAttribute::kMDItemMediaTypes,
                   std::vector<std::string>{"Sound"}) &&
           hasText(pdfIndex(document), platform::IndexAttribute::kMDItemTitle, "Sample");
}

}  // namespace marquell::helpers
