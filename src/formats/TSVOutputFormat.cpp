// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/TSVOutputFormat.h"

#include <utility>

#include "formats/DelimitedOutputOperation.h"

namespace marquell::formats {
namespace {

class TSVOutputOperation final : public DelimitedOutputOperation {
public:
    TSVOutputOperation(const SharedSnapshot& snapshot, pipeline::StageOwner& owner, SharedList list)
        : DelimitedOutputOperation(snapshot, owner, std::move(list),
                                   layoutBySettings('\t', *snapshot)) {}
};

}  // namespace

std::shared_ptr<OutputFormatOperationType> TSVOutputFormat::getOutputOperation(
    SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner, SharedList flatFileList) const {
    return std::make_shared<TSVOutputOperation>(dataModelSnapshot, owner, std::move(flatFileList));
}

}  // namespace marquell::formats
