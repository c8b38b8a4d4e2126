// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <optional>
#include <string>

#include "platform/SettingsDocument.h"

namespace marquell::platform {

/// A settings file that several programs read and change. Beside it lies the file of their lock.
/// For one thread at a time.
class SettingsFile {
public:
    /// `path` is absolute. `patience` is how long a save waits for others to end theirs.
    SettingsFile(std::string path, std::chrono::milliseconds patience);

    struct Outcome {
        /// What the file has now, nothing if there is none. Absent after a failure: the file is as
        /// it was.
        std::optional<DefaultsValues> values;
        /// A sentence for the user, if there is anything to tell. The same failure gives the same.
        std::string report;
    };

    /// Makes and changes nothing on disk.
    Outcome read();

    /// Makes the changes to what the file has by now; doesn't write if that leaves it as it is. A
    /// content that isn't understood is moved to another name first, and its place taken by what
    /// was last known of the file.
    Outcome save(const DefaultsChanges& changes);

    /// While true, a save that meets another one fails at once. Any thread.
    void setHurried(bool isHurried) { isHurried_ = isHurried; }

    static std::string lockOf(const std::string& path) { return path + ".lock"; }

private:
    struct Look;
    Look look() const;
    Look lookTwice() const;
    Outcome saveLocked(const DefaultsChanges& changes);
    Outcome failure(const std::string& reason) const;

    std::string path_;
    std::chrono::milliseconds patience_;
    std::atomic<bool> isHurried_ = false;
    std::string lastKnown_{emptySettings};  ///< the last content that was understood
};

}  // namespace marquell::platform
