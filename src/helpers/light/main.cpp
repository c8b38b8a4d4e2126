// SPDX-License-Identifier: GPL-3.0-or-later

#include <unistd.h>

#include <cstdint>
#include <optional>
#include <string_view>

#include "helpers/image/ImageReader.h"
#include "helpers/light/Confinement.h"
#include "helpers/light/Limits.h"
#include "helpers/light/RequestLoop.h"
#include "platform/HelperProtocol.h"

namespace {

using namespace marquell;

std::optional<platform::PropertyDictionary> readFile(const platform::HelperRequest& request,
                                                     int descriptor) {
    const std::string_view padded(request.extension.data(), request.extension.size());
    helpers::FileInput input(descriptor, request.size);
    return helpers::readImage(input, padded.substr(0, padded.find('\0')));
}

}  // namespace

int main() {
    helpers::limitResources();
    if (!helpers::dieWithProgram(platform::helperLifeline)) return 1;
    helpers::prepareImageReader();
    const std::uint32_t protections = helpers::confine();
    // Whoever can't read this one will fail over any file: better not to begin.
    if (!helpers::readsSampleImage()) return 1;
    const bool isDone = helpers::answerRequests(platform::helperSocket, protections, readFile);
    // Nothing is worth cleaning up, and a process that was taken over must not run exit handlers.
    ::_exit(isDone ? 0 : 1);
}
