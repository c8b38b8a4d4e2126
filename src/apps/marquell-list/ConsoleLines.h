// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>

namespace marquell::apps {

/// Gathers the diagnostics of a run, the first of each topic, for its end: till then the terminal
/// shows the progress. Listens as long as it lives.
class ConsoleLines {
public:
    ConsoleLines();
    ~ConsoleLines();
    ConsoleLines(const ConsoleLines&) = delete;
    ConsoleLines& operator=(const ConsoleLines&) = delete;

    /// Prints them.
    void report() const;

private:
    mutable std::mutex mutex_;
    std::map<std::string, std::string, std::less<>> lines_;  // by topic; guarded by mutex_
};

}  // namespace marquell::apps
