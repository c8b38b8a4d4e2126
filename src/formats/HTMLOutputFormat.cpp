// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/HTMLOutputFormat.h"

#include <utility>

#include "formats/HTMLOutputOperation.h"

namespace marquell::formats {

std::shared_ptr<OutputFormatOperationType> HTMLOutputFormat::getOutputOperation(
    SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner, SharedList flatFileList) const {
    return std::make_shared<HTMLOutputOperation>(std::move(dataModelSnapshot), owner,
                                                 std::move(flatFileList));
}

}  // namespace marquell::formats
