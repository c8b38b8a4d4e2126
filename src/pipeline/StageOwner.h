// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::formats {
class OutputFormatOperationType;
}

namespace marquell::pipeline {

class ReSortFlatFileListOperation;
class ScannerOperation;

/// Whoever runs stages. A stage calls back once, at its end, on the thread that it ran on; a stage
/// that was cancelled in time does not call. The owner outlives its stages: it holds the queue that
/// they run on, whose destruction stops them.
class StageOwner {
public:
    virtual ~StageOwner() = default;
    virtual void scanOperationFinished(ScannerOperation& scanOperation) = 0;
    virtual void reSortOperationFinished(ReSortFlatFileListOperation& reSortOperation) = 0;
    virtual void outputOperationFinished(formats::OutputFormatOperationType& outputOperation) = 0;
};

}  // namespace marquell::pipeline
