// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/ScannerOperation.h"

#include <utility>

namespace marquell::pipeline {

ScannerOperation::ScannerOperation(StageOwner& owner,
                                   std::shared_ptr<const DataModelSnapshot> dataModelSnapshot)
    : owner_(owner),
      snapshot_(std::move(dataModelSnapshot)),
      scanner_([this] { return isCancelled(); }) {}

void ScannerOperation::main() {
    if (isCancelled()) return;
    scanner_.firstSortMode = snapshot_->firstSortMode;
    scanner_.secondSortMode = snapshot_->secondSortMode;
    for (const std::string& source : snapshot_->sourceList) {
        if (isCancelled()) return;
        scanner_.addSource(source, *snapshot_);
    }
    // One sort after the last source gives the list that a sort after each would give.
    if (!snapshot_->sourceList.empty()) scanner_.sort();
    flatFileList_ = scanner_.flatFileList;
    if (!isCancelled()) owner_.scanOperationFinished(*this);
}

}  // namespace marquell::pipeline
