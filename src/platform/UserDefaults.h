// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/DefaultsValue.h"
#include "platform/KeyObservers.h"
#include "platform/KeyValueObservable.h"
#include "platform/SettingsDocument.h"
#include "platform/SettingsFile.h"
#include "platform/SettingsThread.h"

namespace marquell::platform {

class MainQueue;

/// The user's settings, by key. A value is looked for in two layers: what was stored, by this run
/// or an earlier one, and the defaults that the program registered, which are in memory only. A
/// stored value that doesn't fit the type of its key's registered default counts as not there, but
/// stays in the file until it is replaced.
///
/// Stored values are kept in one file, shared by all running programs of the user. A change is seen
/// in this process at once and is in the file within 100 ms, and at the latest when the store is
/// destroyed; only the changed keys are written over what the file holds by then, and nothing is
/// written when nothing differs. What another program writes arrives within a second, and observers
/// of the keys whose values it changed are told on the main queue that was installed when the last
/// observer was added, and which has to live as long as there are observers. A program without a
/// main queue is not kept up to date. A file that can't be read or understood is as good as empty
/// and is never overwritten: one that isn't understood is set aside before the first write, one
/// that isn't readable stops all writes. No failure leaves the store but as a report.
///
/// All operations may be called from any thread.
class UserDefaults : public KeyValueObservable, public std::enable_shared_from_this<UserDefaults> {
public:
    /// Takes a sentence for the user on what is wrong with the settings file. Called on any thread.
    using ProblemReporter = std::function<void(const std::string& message)>;

    /// Reads `file`, an absolute path; it, and the folder that it lies in, need not exist. A write
    /// that other programs' writes keep from the file for longer than `patience` has failed.
    static std::shared_ptr<UserDefaults> open(
        const std::string& file, ProblemReporter reportProblem,
        std::chrono::milliseconds patience = std::chrono::seconds(2));

    /// Where the settings of the user are: "marquell/settings.json" in the folder for
    /// configuration.
    static std::string standardFile();

    /// The store over standardFile(); problems go to standard error.
    static const std::shared_ptr<UserDefaults>& standard();

    /// Writes what is not in the file yet.
    ~UserDefaults() override;

    /// A later default of the same key replaces the earlier one. Nobody is notified.
    void registerDefault(const std::string& forKey, DefaultsValue value);

    /// From now on the key is neither read from nor written to the file: it is this process's own.
    void keepInMemory(const std::string& key);

    /// The stored value, else the registered default.
    std::optional<DefaultsValue> object(const std::string& forKey) const;
    /// The same if it is a text.
    std::optional<std::string> string(const std::string& forKey) const;

    /// Notifies the key's observers, also when the value is the same as before.
    void setObject(DefaultsValue value, const std::string& forKey);
    /// The registered default is in force again. Notifies the key's observers.
    void removeObject(const std::string& forKey);

    /// Returns when all changes made before are in the file. False if they could not be written;
    /// they are tried again with the next change, every few seconds, and at the end.
    bool synchronize();

    ObserverId addObserver(const std::string& keyPath, Observer observer) override;
    void removeObserver(ObserverId id) override;

private:
    UserDefaults(const std::string& file, ProblemReporter reportProblem,
                 std::chrono::milliseconds patience);

    void change(const std::string& key, std::optional<DefaultsValue> value);
    bool save();
    void reread();
    std::string newReport(const SettingsFile::Outcome& outcome);
    std::optional<DefaultsValue> effective(const std::string& key) const;
    DefaultsChanges takePending();
    void takeOver(const DefaultsValues& values);
    void notify(const std::string& key);

    const ProblemReporter reportProblem_;

    std::mutex diskMutex_;    // taken before mutex_
    SettingsFile file_;       // guarded by diskMutex_
    std::string lastReport_;  // guarded by diskMutex_

    mutable std::mutex mutex_;
    DefaultsValues registered_;       // guarded by mutex_
    DefaultsValues stored_;           // guarded by mutex_; with what is not in the file yet
    std::set<std::string> pending_;   // guarded by mutex_; keys to be written by the next save
    std::set<std::string> inMemory_;  // guarded by mutex_
    KeyObservers observers_;          // guarded by mutex_
    MainQueue* mainQueue_ = nullptr;  // guarded by mutex_

    SettingsThread thread_;  // the last member, as it uses the others
};

}  // namespace marquell::platform
