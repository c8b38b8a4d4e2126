// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "pipeline/DataModelSnapshot.h"
#include "pipeline/FileScanner.h"
#include "pipeline/OutputEngineOperationType.h"
#include "pipeline/StageOwner.h"

namespace marquell::pipeline {

/// The first stage: from the sources of a snapshot to a sorted list. Cancelled, it ends at the next
/// folder or block and reports nothing.
class ScannerOperation : public OutputEngineOperationType {
public:
    ScannerOperation(StageOwner& owner, std::shared_ptr<const DataModelSnapshot> dataModelSnapshot);

    void main() override;

    std::size_t currentFileCount() const override { return scanner_.currentTotalItemsScanned(); }
    std::size_t totalFileCount() const override { return scanner_.currentTotalItemsScanned(); }
    OutputOperationTypeEnum type() const override { return OutputOperationTypeEnum::scanning; }
    bool indeterminateProgress() const override { return scanner_.isSorting(); }

    const std::shared_ptr<const DataModelSnapshot>& dataModelSnapshot() const { return snapshot_; }

    /// The result; there once the owner is told.
    std::shared_ptr<const FlatFileList> flatFileList() const { return flatFileList_; }

private:
    StageOwner& owner_;
    const std::shared_ptr<const DataModelSnapshot> snapshot_;
    FileScanner scanner_;
    std::shared_ptr<const FlatFileList> flatFileList_;
};

}  // namespace marquell::pipeline
