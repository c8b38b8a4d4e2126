// SPDX-License-Identifier: GPL-3.0-or-later

#include <unistd.h>

#include <cstdint>
#include <optional>
#include <string_view>

#include "helpers/process/Confinement.h"
#include "helpers/process/Limits.h"
#include "helpers/process/RequestLoop.h"
#include "helpers/streams/StreamReaders.h"
#include "platform/HelperProtocol.h"

namespace {

using namespace marquell;
using platform::HelperTask;

std::optional<platform::PropertyDictionary> readFile(const platform::HelperRequest& request,
                                                     int descriptor) {
    helpers::FileInput input(descriptor, request.size);
    const std::string_view extension = platform::extensionOf(request);
    switch (request.task) {
        case HelperTask::streamIndex:
            return helpers::streamIndex(input, extension);
        case HelperTask::pdfIndex:
            return helpers::pdfIndex(input);
        default:
            return std::nullopt;
    }
}

}  // namespace

int main() {
    helpers::limitResources();
    if (!helpers::dieWithProgram(platform::helperLifeline)) return 1;
    helpers::prepareStreamReaders();
    const std::uint32_t protections = helpers::confine();
    // Whoever can't read these will fail over any file: better not to begin.
    if (!helpers::readsSampleStreams()) return 1;
    const bool isDone = helpers::answerRequests(platform::helperSocket, protections, readFile);
    // Nothing is worth cleaning up, and a process that was taken over must not run exit handlers.
    ::_exit(isDone ? 0 : 1);
}
