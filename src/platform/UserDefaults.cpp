// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UserDefaults.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

#include "platform/DescriptorIo.h"
#include "platform/MainQueue.h"
#include "platform/UserFolders.h"
#include "platform/Utf8.h"

namespace marquell::platform {
namespace {

std::optional<DefaultsValue> valueIn(const DefaultsValues& values, const std::string& key) {
    const auto found = values.find(key);
    if (found == values.end()) return std::nullopt;
    return found->second;
}

void assign(DefaultsValues& values, const std::string& key, std::optional<DefaultsValue> value) {
    if (value) {
        values.insert_or_assign(key, std::move(*value));
    } else {
        values.erase(key);
    }
}

bool areSame(const std::optional<DefaultsValue>& a, const std::optional<DefaultsValue>& b) {
    return a && b ? identical(*a, *b) : !a && !b;
}

/// The file can only have valid texts; what it will have is what memory has to have.
DefaultsValue withValidTexts(DefaultsValue value) {
    const auto clean = [](std::string& text) {
        if (!isValidUtf8(text)) text = displayText(text);
    };
    if (auto* text = std::get_if<std::string>(&value)) clean(*text);
    if (auto* list = std::get_if<TextList>(&value)) {
        if (!std::all_of(list->begin(), list->end(), &isValidUtf8)) {
            std::vector<std::string> texts = list->texts();
            std::for_each(texts.begin(), texts.end(), clean);
            *list = std::move(texts);
        }
    }
    return value;
}

void reportOnStandardError(const std::string& message) {
    // Nothing is left to tell when standard error itself fails.
    static_cast<void>(writeAll(STDERR_FILENO, "marquell: " + message + '\n'));
}

}  // namespace

std::shared_ptr<UserDefaults> UserDefaults::open(const std::string& file,
                                                 ProblemReporter reportProblem,
                                                 std::chrono::milliseconds patience) {
    return std::shared_ptr<UserDefaults>(
        new UserDefaults(file, std::move(reportProblem), patience));
}

std::string UserDefaults::standardFile() {
    return configurationFolder() + "/marquell/settings.json";
}

const std::shared_ptr<UserDefaults>& UserDefaults::standard() {
    static const std::shared_ptr<UserDefaults> defaults =
        open(standardFile(), reportOnStandardError);
    return defaults;
}

UserDefaults::UserDefaults(const std::string& file, ProblemReporter reportProblem,
                           std::chrono::milliseconds patience)
    : reportProblem_(std::move(reportProblem)),
      file_(file, patience),
      thread_(file, {[this] { return save(); }, [this] { reread(); }}) {
    SettingsFile::Outcome outcome = file_.read();
    const std::string report = newReport(outcome);
    if (outcome.values) stored_ = std::move(*outcome.values);
    if (!report.empty()) reportProblem_(report);
}

UserDefaults::~UserDefaults() {
    // Only one save, the last, may wait for others.
    file_.setHurried(true);
    thread_.stop();
    file_.setHurried(false);
    save();
}

void UserDefaults::registerDefault(const std::string& forKey, DefaultsValue value) {
    const std::lock_guard lock(mutex_);
    registered_.insert_or_assign(forKey, std::move(value));
}

void UserDefaults::keepInMemory(const std::string& key) {
    const std::lock_guard lock(mutex_);
    if (!inMemory_.insert(key).second) return;
    stored_.erase(key);
    pending_.erase(key);
}

std::optional<DefaultsValue> UserDefaults::object(const std::string& forKey) const {
    const std::lock_guard lock(mutex_);
    return effective(forKey);
}

std::optional<std::string> UserDefaults::string(const std::string& forKey) const {
    std::optional<DefaultsValue> value = object(forKey);
    auto* text = value ? std::get_if<std::string>(&*value) : nullptr;
    if (text == nullptr) return std::nullopt;
    return std::move(*text);
}

void UserDefaults::setObject(DefaultsValue value, const std::string& forKey) {
    change(forKey, std::move(value));
}

void UserDefaults::removeObject(const std::string& forKey) { change(forKey, std::nullopt); }

bool UserDefaults::synchronize() { return save(); }

KeyValueObservable::ObserverId UserDefaults::addObserver(const std::string& keyPath,
                                                         Observer observer) {
    MainQueue* const mainQueue = MainQueue::installed();
    ObserverId id = 0;
    {
        const std::lock_guard lock(mutex_);
        mainQueue_ = mainQueue;
        id = observers_.add(keyPath, std::move(observer));
    }
    if (mainQueue != nullptr) thread_.watch();
    return id;
}

void UserDefaults::removeObserver(ObserverId id) {
    std::shared_ptr<KeyObservers::Entry> removed;  // ends after the lock
    const std::lock_guard lock(mutex_);
    removed = observers_.remove(id);
}

void UserDefaults::change(const std::string& key, std::optional<DefaultsValue> value) {
    KeyObservers::Entries observers;
    bool isDifferent = false;
    {
        const std::lock_guard lock(mutex_);
        if (!inMemory_.contains(key)) {
            if (value) value = withValidTexts(std::move(*value));
            isDifferent = !areSame(valueIn(stored_, key), value);
            if (isDifferent) pending_.insert(key);
        }
        assign(stored_, key, std::move(value));
        observers = observers_.of(key);
    }
    if (isDifferent && !thread_.saveSoon()) save();
    // An observer may let go of the store, so nothing of it is used from here on.
    KeyObservers::notify(observers);
}

/// Has the pending changes written, and takes over what others have written.
bool UserDefaults::save() {
    std::string report;
    bool isSaved = true;
    {
        const std::lock_guard diskLock(diskMutex_);
        const DefaultsChanges changes = takePending();
        if (changes.empty()) return true;
        const SettingsFile::Outcome outcome = file_.save(changes);
        report = newReport(outcome);
        isSaved = outcome.values.has_value();
        const std::lock_guard lock(mutex_);
        if (isSaved) {
            takeOver(*outcome.values);
        } else {
            for (const auto& [key, value] : changes) pending_.insert(key);
        }
    }
    if (!report.empty()) reportProblem_(report);
    return isSaved;
}

void UserDefaults::reread() {
    const std::lock_guard diskLock(diskMutex_);
    const SettingsFile::Outcome outcome = file_.read();
    // Somebody may be in the middle of writing it. If it stays like this, the next save tells.
    if (!outcome.values) return;
    const std::lock_guard lock(mutex_);
    takeOver(*outcome.values);
}

/// What is to be told of it: each failure once, until a success. Needs diskMutex_.
std::string UserDefaults::newReport(const SettingsFile::Outcome& outcome) {
    const bool isNew = outcome.report != lastReport_;
    lastReport_ = outcome.values ? std::string() : outcome.report;
    return isNew ? outcome.report : std::string();
}

/// Needs mutex_, as all that follow but notify().
std::optional<DefaultsValue> UserDefaults::effective(const std::string& key) const {
    std::optional<DefaultsValue> stored = valueIn(stored_, key);
    const auto registered = registered_.find(key);
    if (registered == registered_.end()) return stored;
    if (stored) stored = fitted(*stored, registered->second);
    return stored ? std::move(stored) : registered->second;
}

DefaultsChanges UserDefaults::takePending() {
    const std::lock_guard lock(mutex_);
    DefaultsChanges changes;
    for (const std::string& key : pending_) {
        if (!inMemory_.contains(key)) changes.emplace(key, valueIn(stored_, key));
    }
    pending_.clear();
    return changes;
}

/// Takes the file's values for the stored ones, but for keys that have newer values or are kept in
/// memory, and has the observers told where that makes a difference.
void UserDefaults::takeOver(const DefaultsValues& values) {
    if (mainQueue_ == nullptr) return;
    std::set<std::string> keys;
    for (const auto& [key, value] : stored_) keys.insert(key);
    for (const auto& [key, value] : values) keys.insert(key);
    std::vector<std::string> changed;
    for (const std::string& key : keys) {
        if (pending_.contains(key) || inMemory_.contains(key)) continue;
        const std::optional<DefaultsValue> before = effective(key);
        assign(stored_, key, valueIn(values, key));
        if (!areSame(before, effective(key))) changed.push_back(key);
    }
    if (changed.empty() || observers_.isEmpty()) return;
    mainQueue_->post([weak = weak_from_this(), changed = std::move(changed)] {
        for (const std::string& key : changed) {
            if (const auto store = weak.lock()) store->notify(key);
        }
    });
}

void UserDefaults::notify(const std::string& key) {
    KeyObservers::Entries observers;
    {
        const std::lock_guard lock(mutex_);
        observers = observers_.of(key);
    }
    KeyObservers::notify(observers);
}

}  // namespace marquell::platform
