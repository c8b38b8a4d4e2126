// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/OutputEngineOperationType.h"

namespace marquell::pipeline {

std::optional<StageProgress> progressOfFirst(const platform::OperationQueue& queue) {
    std::optional<StageProgress> progress;
    queue.inspect([&progress](const auto operations) {
        if (operations.empty()) return;
        const auto* stage =
            dynamic_cast<const OutputEngineOperationType*>(operations.front().get());
        if (stage != nullptr) progress = stage->progress();
    });
    return progress;
}

}  // namespace marquell::pipeline
