// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleLines.h"

#include <string_view>

#include "Messages.h"
#include "platform/Console.h"
#include "platform/DiagnosticText.h"

namespace marquell::apps {

ConsoleLines::ConsoleLines() {
    platform::setConsoleWriter([this](std::string_view topic, std::string_view line) {
        // Files may make up topics without end.
        constexpr std::size_t mostTopics = 1000;
        const std::lock_guard lock(mutex_);
        if (lines_.size() == mostTopics || lines_.contains(topic)) return;
        lines_.emplace(topic, platform::diagnosticText(line));
    });
}

void ConsoleLines::report() const {
    const std::lock_guard lock(mutex_);
    for (const auto& [topic, line] : lines_) printMessage(line);
}

ConsoleLines::~ConsoleLines() { platform::setConsoleWriter({}); }

}  // namespace marquell::apps
