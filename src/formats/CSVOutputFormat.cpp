// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/CSVOutputFormat.h"

#include <utility>

#include "formats/DelimitedOutputOperation.h"

namespace marquell::formats {
namespace {

class CSVOutputOperation final : public DelimitedOutputOperation {
public:
    CSVOutputOperation(const SharedSnapshot& snapshot, pipeline::StageOwner& owner, SharedList list)
        : DelimitedOutputOperation(snapshot, owner, std::move(list),
                                   layoutBySettings(',', *snapshot)) {}
};

}  // namespace

std::shared_ptr<OutputFormatOperationType> CSVOutputFormat::getOutputOperation(
    SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner, SharedList flatFileList) const {
    return std::make_shared<CSVOutputOperation>(dataModelSnapshot, owner, std::move(flatFileList));
}

}  // namespace marquell::formats
