// SPDX-License-Identifier: GPL-3.0-or-later

#include <optional>
#include <string_view>

#include "helpers/process/HelperRun.h"
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
    return helpers::runHelper(&helpers::prepareStreamReaders, &helpers::readsSampleStreams,
                              readFile);
}
