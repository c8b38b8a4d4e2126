// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>

#include "platform/OperationQueue.h"

namespace marquell::pipeline {

enum class OutputOperationTypeEnum { scanning, resorting, computingOutput, ready };

/// How far a stage has come.
struct StageProgress {
    OutputOperationTypeEnum type;
    std::size_t currentFileCount;
    std::size_t totalFileCount;
    bool indeterminateProgress;
};

/// What every stage shows of itself. All of it may be read from any thread while the stage runs;
/// counts may lag behind.
class OutputEngineOperationType : public platform::Operation {
public:
    virtual std::size_t currentFileCount() const = 0;
    virtual std::size_t totalFileCount() const = 0;
    virtual OutputOperationTypeEnum type() const = 0;
    virtual bool indeterminateProgress() const = 0;

    StageProgress progress() const {
        return {type(), currentFileCount(), totalFileCount(), indeterminateProgress()};
    }
};

/// The progress of the stage that a queue is at; absent if it has none.
std::optional<StageProgress> progressOfFirst(const platform::OperationQueue& queue);

}  // namespace marquell::pipeline
