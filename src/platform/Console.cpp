// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Console.h"

#include <utility>

namespace marquell::platform {
namespace {

ConsoleWriter& writerSlot() {
    // Never destroyed: threads may still write while the process ends.
    static auto* const slot = new ConsoleWriter;
    return *slot;
}

}  // namespace

void setConsoleWriter(ConsoleWriter writer) { writerSlot() = std::move(writer); }

void writeToConsole(std::string_view topic, std::string_view line) {
    if (const ConsoleWriter& writer = writerSlot()) writer(topic, line);
}

}  // namespace marquell::platform
