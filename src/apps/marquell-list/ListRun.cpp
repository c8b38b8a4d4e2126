// SPDX-License-Identifier: GPL-3.0-or-later
#include "ListRun.h"

#include <chrono>
#include <tuple>
#include <utility>

#include "formats/OutputFormatType.h"
#include "pipeline/ScannerOperation.h"

namespace marquell::apps {

std::shared_ptr<formats::OutputFormatOperationType> ListRun::run(
    pipeline::DataModelSnapshot snapshot, const StageShower& show) {
    using namespace std::chrono_literals;
    if (!queue_.addOperation(std::make_shared<pipeline::ScannerOperation>(
            *this, std::make_shared<const pipeline::DataModelSnapshot>(std::move(snapshot))))) {
        return nullptr;
    }
    std::unique_lock lock(mutex_);
    while (!finished_.wait_for(lock, 100ms, [this] { return isFinished_; })) {
        if (const auto progress = pipeline::progressOfFirst(queue_)) show(*progress);
    }
    return output_;
}

void ListRun::scanOperationFinished(pipeline::ScannerOperation& scanOperation) {
    const auto& snapshot = scanOperation.dataModelSnapshot();
    auto output = formats::outputFormat(snapshot->outputFormat)
                      .getOutputOperation(snapshot, *this, scanOperation.flatFileList());
    {
        const std::lock_guard lock(mutex_);
        output_ = output;
    }
    // Cannot fail: the queue has the thread that this runs on.
    std::ignore = queue_.addOperation(std::move(output));
}

void ListRun::outputOperationFinished(formats::OutputFormatOperationType&) {
    {
        const std::lock_guard lock(mutex_);
        isFinished_ = true;
    }
    finished_.notify_one();
}

}  // namespace marquell::apps
