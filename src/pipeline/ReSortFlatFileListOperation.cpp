// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/ReSortFlatFileListOperation.h"

#include <utility>

#include "platform/Disposal.h"

namespace marquell::pipeline {

ReSortFlatFileListOperation::ReSortFlatFileListOperation(
    StageOwner& owner, std::shared_ptr<const DataModelSnapshot> dataModelSnapshot,
    std::shared_ptr<const FlatFileList> flatFileList)
    : owner_(owner),
      snapshot_(std::move(dataModelSnapshot)),
      flatFileList_(std::move(flatFileList)) {}

void ReSortFlatFileListOperation::main() {
    if (isCancelled()) return;
    const auto list = platform::makeDisposedOnWorker<FlatFileList>(*flatFileList_);
    list->sort(snapshot_->firstSortMode, snapshot_->secondSortMode,
               [this] { return isCancelled(); });
    resorted_ = list;
    if (!isCancelled()) owner_.reSortOperationFinished(*this);
}

}  // namespace marquell::pipeline
