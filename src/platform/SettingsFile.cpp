// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SettingsFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <thread>
#include <utility>

#include "platform/AtomicFile.h"
#include "platform/DescriptorIo.h"
#include "platform/DiagnosticText.h"
#include "platform/FileDescriptor.h"
#include "platform/FileLock.h"
#include "platform/FileSystem.h"
#include "platform/Path.h"
#include "platform/UserFolders.h"

namespace marquell::platform {
namespace {

constexpr std::size_t maximumSize = 16 * 1024 * 1024;
constexpr AtomicWriting ofThisUser = {.newMode = 0600, .isAlone = true};

/// How long an editor may take between emptying a file and filling it.
constexpr auto secondLookDelay = std::chrono::milliseconds(100);

std::string quoted(const std::string& path) { return '"' + diagnosticText(path) + '"'; }

/// Moves a file to a name that is free. Returns 0 or errno.
int moveToFreeName(const std::string& path, const std::string& name) {
    if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL) return errno;
    // Some file systems over the network can't do that, but know hard links.
    if (::link(path.c_str(), name.c_str()) != 0) return errno;
    return ::unlink(path.c_str()) != 0 ? errno : 0;
}

/// What a path leads to, moved aside.
class SetAside {
public:
    /// Returns 0 or errno.
    int move(const std::string& path) {
        constexpr int maximumNumber = 1000;
        int error = 0;
        std::optional<std::string> place = realPath(path, error);
        if (!place) return error;
        place_ = std::move(*place);
        error = EEXIST;
        for (int number = 1; error == EEXIST && number <= maximumNumber; ++number) {
            name_ = place_ + ".corrupt-" + std::to_string(number);
            error = moveToFreeName(place_, name_);
        }
        isMoved_ = error == 0;
        return error;
    }

    /// Whether it is where it was before; if not, it can't be helped.
    bool moveBack() {
        if (isMoved_) isMoved_ = moveToFreeName(name_, place_) != 0;
        return !isMoved_;
    }

    bool isMoved() const { return isMoved_; }
    const std::string& name() const { return name_; }

private:
    std::string place_;
    std::string name_;
    bool isMoved_ = false;
};

}  // namespace

struct SettingsFile::Look {
    enum class State { missing, understood, notUnderstood, notReadable };

    State state;
    std::string text;       ///< what is there to be changed
    DefaultsValues values;  ///< what it means
    std::string problem;
};

SettingsFile::SettingsFile(std::string path, std::chrono::milliseconds patience)
    : path_(std::move(path)), patience_(patience) {}

SettingsFile::Look SettingsFile::look() const {
    using State = Look::State;
    const auto notReadable = [](std::string problem) {
        return Look{State::notReadable, {}, {}, std::move(problem)};
    };
    int error = 0;
    // Anything may have been put there: a FIFO must not be waited for, nor a terminal taken.
    const FileDescriptor file = openPath(path_, O_RDONLY | O_NONBLOCK | O_NOCTTY, error);
    if (!file.isOpen()) {
        if (error == ENOENT) return {State::missing, std::string(emptySettings), {}, {}};
        return notReadable(std::strerror(error));
    }
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) return notReadable(std::strerror(errno));
    if (!S_ISREG(status.st_mode)) return notReadable("found no regular file, expected one");
    if (std::cmp_greater(status.st_size, maximumSize)) {
        return notReadable("found more than 16 MB, expected settings");
    }
    std::optional<std::string> text = readAll(file.get(), error);
    if (!text) return notReadable(std::strerror(error));
    std::string problem;
    std::optional<DefaultsValues> values = settingsIn(*text, problem);
    if (!values) return {State::notUnderstood, {}, {}, std::move(problem)};
    return {State::understood, std::move(*text), std::move(*values), {}};
}

SettingsFile::Outcome SettingsFile::failure(const std::string& reason) const {
    return {std::nullopt, "settings file " + quoted(path_) + ": " + reason};
}

/// A second look, a moment later, at what was not understood: an editor may be writing it.
SettingsFile::Look SettingsFile::lookTwice() const {
    Look found = look();
    if (found.state != Look::State::notUnderstood) return found;
    std::this_thread::sleep_for(secondLookDelay);
    return look();
}

SettingsFile::Outcome SettingsFile::read() {
    Look found = lookTwice();
    switch (found.state) {
        case Look::State::notUnderstood:
            return failure(found.problem + "; it is disregarded");
        case Look::State::notReadable:
            return failure(found.problem + "; it is left alone");
        default:
            lastKnown_ = std::move(found.text);
            return {std::move(found.values), {}};
    }
}

SettingsFile::Outcome SettingsFile::save(const DefaultsChanges& changes) {
    const std::string folder(deletingLastPathComponent(path_));
    if (const int error = makeFolder(folder); error != 0) {
        return failure("its folder can't be made: " + std::string(std::strerror(error)));
    }
    const FileLock lock(lockOf(path_), patience_, isHurried_);
    if (lock.error() == EWOULDBLOCK) return failure("another program keeps it locked");
    if (lock.error() != 0) {
        return failure("it can't be locked: " + std::string(std::strerror(lock.error())));
    }
    return saveLocked(changes);
}

SettingsFile::Outcome SettingsFile::saveLocked(const DefaultsChanges& changes) {
    Look found = lookTwice();
    if (found.state == Look::State::notReadable) {
        return failure(found.problem + "; it is left alone");
    }
    std::string report;
    SetAside setAside;
    if (found.state == Look::State::notUnderstood) {
        if (const int error = setAside.move(path_); error != 0) {
            return failure(found.problem +
                           "; it can't be set aside: " + std::string(std::strerror(error)));
        }
        report = failure(found.problem + "; it is now " + quoted(setAside.name())).report;
    }
    const std::string& base = setAside.isMoved() ? lastKnown_ : found.text;
    std::string text = withChanges(base, changes);
    if (text != base || setAside.isMoved()) {
        const int error = writeFileAtomically(path_, text, ofThisUser);
        if (error != 0) {
            const bool isThere = setAside.moveBack();
            return failure(std::string(std::strerror(error)) + "; changes are not saved" +
                           (isThere ? "" : ", and it is now " + quoted(setAside.name())));
        }
    }
    lastKnown_ = std::move(text);
    return {settingsIn(lastKnown_, found.problem), std::move(report)};
}

}  // namespace marquell::platform
