// SPDX-License-Identifier: GPL-3.0-or-later
// After one byte that chooses: a ZIP file, or the metadata of a document in one.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "../helpers/Bytes.h"
#include "helpers/documents/DocumentReaders.h"

namespace {

using marquell::helpers::little;
using marquell::helpers::zeros;
using Member = std::pair<std::string_view, std::string_view>;

/// A ZIP file of two members that are not packed.
std::string archiveOf(const std::array<Member, 2>& members) {
    std::string content;
    std::string directory;
    for (const auto& [name, bytes] : members) {
        const std::string lengths =
            little(bytes.size(), 4) + little(bytes.size(), 4) + little(name.size(), 2) + zeros(2);
        directory += "PK\1\2" + zeros(16) + lengths + zeros(10) + little(content.size(), 4);
        directory += name;
        content += "PK\3\4" + zeros(14) + lengths;
        content.append(name).append(bytes);
    }
    return content + directory + "PK\5\6" + zeros(8) + little(directory.size(), 4) +
           little(content.size(), 4) + zeros(2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marquell;
    if (size == 0) return 0;
    constexpr std::string_view container = R"(<rootfile full-path="x"/>)";
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    std::string file(bytes);
    if (data[0] % 4 == 1) file = archiveOf({{{"_rels/.rels", ""}, {"docProps/core.xml", bytes}}});
    if (data[0] % 4 == 2) file = archiveOf({{{"mimetype", ""}, {"meta.xml", bytes}}});
    if (data[0] % 4 == 3) file = archiveOf({{{"META-INF/container.xml", container}, {"x", bytes}}});
    helpers::MemoryInput input(file);
    if (const auto properties = helpers::packageIndex(input)) {
        const auto decoded = platform::decodeProperties(platform::encodeProperties(*properties));
        // What the reader makes is what the program takes.
        if (decoded != properties) __builtin_trap();
    }
    return 0;
}
