// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace marquell::apps {

/// Gathers what could not be read during a run, for a report that is the same however the threads
/// met it: sorted by path, each path once for each reason. Listens as long as it lives.
class FailureCollector {
public:
    FailureCollector();
    ~FailureCollector();
    FailureCollector(const FailureCollector&) = delete;
    FailureCollector& operator=(const FailureCollector&) = delete;

    /// Prints a line for each. Returns whether there were any.
    bool report() const;

private:
    mutable std::mutex mutex_;
    std::set<std::pair<std::string, std::string>> failures_;  // guarded by mutex_
};

}  // namespace marquell::apps
