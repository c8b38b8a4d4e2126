// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

#include "pipeline/DataModelSnapshot.h"
#include "pipeline/OutputEngineOperationType.h"
#include "pipeline/StageOwner.h"
#include "platform/OperationQueue.h"
#include "platform/TextBuffer.h"

namespace marquell::apps {

/// Runs the stages of one list, one after the other.
class ListRun : public pipeline::StageOwner {
public:
    using StageShower = std::function<void(const pipeline::StageProgress& progress)>;

    /// Makes the text of the list. Meanwhile `show` is called ten times a second, on the caller's
    /// thread, with the progress of the stage that runs. Null if the system refuses a thread to run
    /// on.
    std::shared_ptr<const platform::TextBuffer> run(pipeline::DataModelSnapshot snapshot,
                                                    const StageShower& show);

    void scanOperationFinished(pipeline::ScannerOperation& scanOperation) override;
    void reSortOperationFinished(pipeline::ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(formats::OutputFormatOperationType& outputOperation) override;

private:
    std::mutex mutex_;
    std::condition_variable finished_;
    std::shared_ptr<const platform::TextBuffer> text_;      // guarded by mutex_
    platform::OperationQueue queue_{"mainOperationQueue"};  // last: stops before the rest goes
};

}  // namespace marquell::apps
