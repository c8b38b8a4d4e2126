// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pipeline/OutputEngineOperationType.h"

namespace marquell::apps {

/// One line on the terminal that says what the run is doing; gone again when it is destroyed.
/// Stays silent where standard error is no terminal.
class ProgressLine {
public:
    explicit ProgressLine(bool wanted);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(const pipeline::StageProgress& stage);

private:
    bool isOn_;
    bool isShown_ = false;
};

}  // namespace marquell::apps
