// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProgressLine.h"

#include <unistd.h>

#include <string>

#include "platform/DescriptorIo.h"

namespace marquell::apps {
namespace {

using pipeline::OutputOperationTypeEnum;

constexpr std::string_view clearLine = "\r\x1b[K";

void print(std::string_view text) {
    // Progress is worth no error of its own.
    static_cast<void>(platform::writeAll(STDERR_FILENO, text));
}

std::string stageText(const pipeline::StageProgress& stage) {
    const std::string current = std::to_string(stage.currentFileCount);
    if (stage.type == OutputOperationTypeEnum::computingOutput) {
        return "Computing output (" + current + "/" + std::to_string(stage.totalFileCount) + ")...";
    }
    if (stage.indeterminateProgress) return "Sorting " + current + " items...";
    return current + " items scanned...";
}

}  // namespace

ProgressLine::ProgressLine(bool wanted) : isOn_(wanted && ::isatty(STDERR_FILENO) != 0) {}

ProgressLine::~ProgressLine() {
    if (isShown_) print(clearLine);
}

void ProgressLine::show(const pipeline::StageProgress& stage) {
    if (!isOn_) return;
    print(std::string(clearLine) + stageText(stage));
    isShown_ = true;
}

}  // namespace marquell::apps
