// SPDX-License-Identifier: GPL-3.0-or-later

#include <optional>
#include <string_view>

#include "helpers/documents/DocumentReaders.h"
#include "helpers/image/ImageReader.h"
#include "helpers/index/IndexReaders.h"
#include "helpers/process/HelperRun.h"
#include "helpers/sound/SoundTags.h"
#include "platform/HelperProtocol.h"

namespace {

using namespace marquell;
using platform::HelperTask;

std::optional<platform::PropertyDictionary> readFile(const platform::HelperRequest& request,
                                                     int descriptor) {
    helpers::FileInput input(descriptor, request.size);
    const std::string_view extension = platform::extensionOf(request);
    switch (request.task) {
        case HelperTask::image:
            return helpers::readImage(input, extension);
        case HelperTask::soundTags:
            return helpers::soundTagProperties(helpers::readSoundTags(input, extension));
        case HelperTask::imageIndex:
            return helpers::imageIndex(input, extension);
        case HelperTask::soundIndex:
            return helpers::soundIndex(input, extension);
        case HelperTask::packageIndex:
            return helpers::packageIndex(input);
        case HelperTask::webPageIndex:
            return helpers::webPageIndex(input);
        case HelperTask::messageIndex:
            return helpers::messageIndex(input);
        default:
            return std::nullopt;
    }
}

}  // namespace

int main() {
    return helpers::runHelper(&helpers::prepareImageReader, &helpers::readsSampleImage, readFile);
}
