// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

#include "formats/OutputFormatType.h"
#include "pipeline/DataModelSnapshot.h"
#include "pipeline/OutputEngineOperationType.h"
#include "pipeline/StageOwner.h"
#include "platform/OperationQueue.h"

namespace marquell::apps {

/// Runs the stages of one list, one after the other.
class ListRun : public pipeline::StageOwner {
public:
    using StageShower = std::function<void(const pipeline::StageProgress& progress)>;

    /// Makes the list. Meanwhile `show` is called ten times a second, on the caller's thread, with
    /// the progress of the stage that runs. Gives the finished operation, which has the text; null
    /// if the system refuses a thread to run on.
    std::shared_ptr<formats::OutputFormatOperationType> run(pipeline::DataModelSnapshot snapshot,
                                                            const StageShower& show);

    void scanOperationFinished(pipeline::ScannerOperation& scanOperation) override;
    void reSortOperationFinished(pipeline::ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(formats::OutputFormatOperationType& outputOperation) override;

private:
    std::mutex mutex_;
    std::condition_variable finished_;
    std::shared_ptr<formats::OutputFormatOperationType> output_;  // guarded by mutex_
    bool isFinished_ = false;                                     // guarded by mutex_
    platform::OperationQueue queue_{"mainOperationQueue"};  // last: stops before the rest goes
};

}  // namespace marquell::apps
