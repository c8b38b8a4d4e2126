// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

namespace marquell::platform {

/// Told of each diagnostic line, which is for whoever started the program and not for its user.
/// Called on whichever thread has one, several at a time. What comes from files stands in a line as
/// it is: whoever shows it makes it safe. Lines of one topic (some text) say the same of different
/// files.
using ConsoleWriter = std::function<void(std::string_view topic, std::string_view line)>;

/// Installs the process's writer, an empty one to remove it. Not to be called while stages or
/// extractions run. Without a writer lines go nowhere.
void setConsoleWriter(ConsoleWriter writer);

void writeToConsole(std::string_view topic, std::string_view line);

}  // namespace marquell::platform
