// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "pipeline/DataModelSnapshot.h"
#include "pipeline/FlatFileList.h"
#include "pipeline/OutputEngineOperationType.h"
#include "pipeline/StageOwner.h"

namespace marquell::pipeline {

/// The second stage: a finished list in another order, without another look at the disk. The list
/// that it is given stays as it is. Cancelled, it ends early and reports nothing.
class ReSortFlatFileListOperation : public OutputEngineOperationType {
public:
    ReSortFlatFileListOperation(StageOwner& owner,
                                std::shared_ptr<const DataModelSnapshot> dataModelSnapshot,
                                std::shared_ptr<const FlatFileList> flatFileList);

    void main() override;

    std::size_t currentFileCount() const override { return 0; }
    std::size_t totalFileCount() const override { return flatFileList_->files.size(); }
    OutputOperationTypeEnum type() const override { return OutputOperationTypeEnum::resorting; }
    bool indeterminateProgress() const override { return true; }

    /// The result; there once the owner is told.
    std::shared_ptr<const FlatFileList> resortedFlatFileList() const { return resorted_; }

private:
    StageOwner& owner_;
    const std::shared_ptr<const DataModelSnapshot> snapshot_;
    const std::shared_ptr<const FlatFileList> flatFileList_;
    std::shared_ptr<const FlatFileList> resorted_;
};

}  // namespace marquell::pipeline
