// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextFile.h"

#include <cerrno>

#include "platform/AtomicFile.h"
#include "platform/DescriptorIo.h"

namespace marquell::platform {
namespace {

std::optional<TextWriteProblem> deliver(const EncodedText& text,
                                        const std::function<int(const ByteSource& source)>& write) {
    if (const auto lacking = text.unencodable()) return TextWriteProblem{EILSEQ, lacking};
    const int error = write([&text](const ByteSink& sink) { return text.writeTo(sink); });
    return error == 0 ? std::nullopt : std::optional<TextWriteProblem>({error, std::nullopt});
}

}  // namespace

std::optional<TextWriteProblem> writeTextFile(const std::string& path, std::string_view text,
                                              TextEncoding encoding) {
    return deliver(EncodedText(text, encoding),
                   [&path](const ByteSource& source) { return writeFileAtomically(path, source); });
}

std::optional<TextWriteProblem> writeText(int descriptor, std::string_view text,
                                          TextEncoding encoding) {
    return deliver(EncodedText(text, encoding), [descriptor](const ByteSource& source) {
        return source([descriptor](std::string_view bytes) { return writeAll(descriptor, bytes); });
    });
}

}  // namespace marquell::platform
