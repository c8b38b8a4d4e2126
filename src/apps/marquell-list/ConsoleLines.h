// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <mutex>
#include <set>
#include <string>

namespace marquell::apps {

/// Prints the diagnostics of a run, the first of each topic, unless all is to be quiet. Listens as
/// long as it lives.
class ConsoleLines {
public:
    explicit ConsoleLines(bool isQuiet);
    ~ConsoleLines();
    ConsoleLines(const ConsoleLines&) = delete;
    ConsoleLines& operator=(const ConsoleLines&) = delete;

private:
    std::mutex mutex_;
    std::set<std::string, std::less<>> topics_;  // guarded by mutex_
};

}  // namespace marquell::apps
