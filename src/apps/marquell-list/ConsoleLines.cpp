// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleLines.h"

#include <string_view>

#include "Messages.h"
#include "platform/Console.h"
#include "platform/DiagnosticText.h"

namespace marquell::apps {

ConsoleLines::ConsoleLines(bool isQuiet) {
    if (isQuiet) return;
    platform::setConsoleWriter([this](std::string_view topic, std::string_view line) {
        // Files may make up topics without end.
        constexpr std::size_t mostTopics = 1000;
        const std::lock_guard lock(mutex_);
        if (topics_.size() == mostTopics || !topics_.emplace(topic).second) return;
        printMessage(platform::diagnosticText(line));
    });
}

ConsoleLines::~ConsoleLines() { platform::setConsoleWriter({}); }

}  // namespace marquell::apps
