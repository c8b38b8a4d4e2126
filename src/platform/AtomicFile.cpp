// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <optional>
#include <random>

#include "platform/FileDescriptor.h"
#include "platform/FileHeritage.h"
#include "platform/FileSystem.h"
#include "platform/Path.h"
#include "platform/UnfinishedFile.h"

namespace marquell::platform {
namespace {

constexpr const char* ownDescriptors = "/proc/self/fd";
constexpr std::size_t maximumLinks = 40;  // as the kernel's own limit

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

/// The open descriptor of ours that /dev/fd/3 and the like stand for.
std::optional<int> ownDescriptor(const std::string& path) {
    int error = 0;
    const std::optional<std::string> folder = realPath(folderOf(path), error);
    if (!folder || folder != realPath("/proc/self/fd", error)) return std::nullopt;
    int descriptor = -1;
    const std::string_view name = lastPathComponent(path);
    const char* end = name.data() + name.size();
    const auto [stop, fault] = std::from_chars(name.data(), end, descriptor);
    if (fault != std::errc() || stop != end) return std::nullopt;
    return descriptor;
}

/// Follows a link chain, the last name of which may not exist yet, to its target; a descriptor of
/// ours is not followed further. Returns 0 or errno, for what may be a link must not be replaced.
int resolveLinks(std::string& path) {
    for (std::size_t links = 0; links < maximumLinks; ++links) {
        std::string target(PATH_MAX, '\0');
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0 && errno != EINVAL && errno != ENOENT) return errno;
        if (length < 0 || ownDescriptor(path)) return 0;
        target.resize(static_cast<std::size_t>(length));
        if (target.starts_with('/')) {
            path = target;
        } else {
            const std::size_t slash = path.rfind('/');
            path.replace(slash == std::string::npos ? 0 : slash + 1, std::string::npos, target);
        }
    }
    return ELOOP;
}

int writeTo(int descriptor, const ByteSource& source) {
    return source([descriptor](std::string_view bytes) { return writeAll(descriptor, bytes); });
}

int writeStraight(const std::string& path, const ByteSource& source) {
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (!file.isOpen()) return errno;
    const int error = writeTo(file.get(), source);
    return ::close(file.release()) != 0 && error == 0 ? errno : error;
}

/// A file in the target's folder that takes the target's place when it is renamed, and is gone
/// otherwise. Where the file system can, it has no name until just before: whatever ends the
/// program in the long time until then, nothing is left behind.
class TemporaryFile {
public:
    TemporaryFile(const std::string& target, mode_t mode, bool isAlone)
        : folder_(::open(folderOf(target).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
          targetName_(lastPathComponent(target)),
          isAlone_(isAlone) {
        if (!folder_.isOpen()) {
            error_ = errno;
            return;
        }
        if (::access(ownDescriptors, X_OK) == 0) {  // through which it gets its name
            constexpr int flags = O_WRONLY | O_TMPFILE | O_CLOEXEC;
            file_ = FileDescriptor(::openat(folder_.get(), ".", flags, mode));
            if (file_.isOpen()) return;
        }
        error_ = withFreeName([this, mode](const char* name) {
            constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
            file_ = FileDescriptor(::openat(folder_.get(), name, flags, mode));
            return file_.isOpen();
        });
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!name_.empty()) ::unlinkat(folder_.get(), name_.c_str(), 0);
    }

    /// errno of the creation; the other operations need 0.
    int error() const { return error_; }

    int write(const ByteSource& source) const {
        if (const int error = writeTo(file_.get(), source); error != 0) return error;
        return ::fsync(file_.get()) != 0 ? errno : 0;
    }

    int inherit(const std::string& path, const struct stat& old) const {
        inheritUserAttributes(path, file_.get());
        return inheritAccess(path, old, file_.get());
    }

    int rename() {
        if (name_.empty()) {
            if (const int error = giveName(); error != 0) return error;
        }
        if (::close(file_.release()) != 0) return errno;
        if (::renameat(folder_.get(), name_.c_str(), folder_.get(), targetName_.c_str()) != 0) {
            return errno;
        }
        name_.clear();
        unfinished_.forget();
        // The file is in place; whether the folder's own entry is durable is the disk's affair.
        const FileDescriptor folder(
            ::openat(folder_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (folder.isOpen()) ::fsync(folder.get());
        return 0;
    }

private:
    /// Calls `take` with names that nobody is likely to have, until it takes one. Returns 0, or
    /// errno when that fails otherwise than by a name in use.
    template <typename Take>
    int withFreeName(const Take& take) {
        // The target's name is cut so that the sum fits whatever its length.
        const std::string stem = "." + targetName_.substr(0, 200) + ".";
        if (isAlone_) ::unlinkat(folder_.get(), (stem + "new").c_str(), 0);
        std::random_device random;
        int error = EEXIST;
        for (int attempt = 0; attempt < 100 && error == EEXIST; ++attempt) {
            const std::string name = stem + (isAlone_ ? "new" : std::to_string(random()));
            unfinished_.note(folder_.get(), name);
            error = take(name.c_str()) ? 0 : errno;
            if (error == 0) name_ = name;
        }
        if (error != 0) unfinished_.forget();
        return error;
    }

    int giveName() {
        const std::string open = std::string(ownDescriptors) + "/" + std::to_string(file_.get());
        return withFreeName([this, &open](const char* name) {
            return ::linkat(AT_FDCWD, open.c_str(), folder_.get(), name, AT_SYMLINK_FOLLOW) == 0;
        });
    }

    FileDescriptor folder_;
    std::string targetName_;
    bool isAlone_;
    std::string name_;  ///< empty while it has none
    UnfinishedFile unfinished_;
    FileDescriptor file_;
    int error_ = 0;
};

int replaceFile(const std::string& path, const struct stat* old, const ByteSource& source,
                const AtomicWriting& how) {
    // An old file's content may not leak before the new one has its mode.
    TemporaryFile file(path, old == nullptr ? how.newMode : 0600, how.isAlone);
    if (file.error() != 0) return file.error();
    if (const int error = file.write(source); error != 0) return error;
    const int heritageError = old != nullptr ? file.inherit(path, *old) : 0;
    return heritageError != 0 ? heritageError : file.rename();
}

}  // namespace

int writeFileAtomically(const std::string& path, const ByteSource& source,
                        const AtomicWriting& how) {
    std::string target = path;
    if (const int error = resolveLinks(target); error != 0) return error;
    if (const auto descriptor = ownDescriptor(target)) return writeTo(*descriptor, source);
    struct stat old = {};
    if (::stat(target.c_str(), &old) != 0) {
        return errno == ENOENT ? replaceFile(target, nullptr, source, how) : errno;
    }
    if (S_ISDIR(old.st_mode)) return EISDIR;
    if (!S_ISREG(old.st_mode)) return writeStraight(target, source);
    return replaceFile(target, &old, source, how);
}

int writeFileAtomically(const std::string& path, std::string_view bytes, const AtomicWriting& how) {
    const ByteSource source = [bytes](const ByteSink& sink) { return sink(bytes); };
    return writeFileAtomically(path, source, how);
}

int destinationError(const std::string& path) {
    std::string target = path;
    if (const int error = resolveLinks(target); error != 0) return error;
    if (ownDescriptor(target)) return 0;
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return errno;
    if (exists && S_ISDIR(old.st_mode)) return EISDIR;
    const bool isReplaced = !exists || S_ISREG(old.st_mode);
    const std::string written = isReplaced ? folderOf(target) : target;
    return ::faccessat(AT_FDCWD, written.c_str(), W_OK, AT_EACCESS) != 0 ? errno : 0;
}

}  // namespace marquell::platform
