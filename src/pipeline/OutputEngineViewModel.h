// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

#include "pipeline/OutputEngineOperationType.h"

namespace marquell::pipeline {

/// The engine's progress at one moment, for a status line.
struct OutputEngineViewModel {
    OutputOperationTypeEnum activeStage = OutputOperationTypeEnum::ready;
    std::int64_t currentNumberOfMetadataItems = 0;
    /// Of the newest finished stage.
    std::size_t currentNumberOfItems = 0;
    // Of the stage that runs.
    std::size_t currentItemProcessing = 0;
    std::size_t totalItemProcessing = 0;
    bool indeterminateProgress = false;
};

}  // namespace marquell::pipeline
