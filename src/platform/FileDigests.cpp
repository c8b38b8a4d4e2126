// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileDigests.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/CacheFootprint.h"
#include "platform/ReadFailures.h"
#include "platform/RegularFile.h"

namespace marquell::platform {
namespace {

/// Files of these systems are the kernel's answers. Some have a size that is none: reading all of
/// /proc/kcore would take days.
bool isMadeWhileRead(int descriptor) {
    struct ::statfs system {};
    if (::fstatfs(descriptor, &system) != 0) return false;
    return system.f_type == PROC_SUPER_MAGIC || system.f_type == SYSFS_MAGIC;
}

bool isSameTime(const struct ::timespec& a, const struct ::timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool isUnchanged(const struct ::stat& before, const struct ::stat& after) {
    return before.st_size == after.st_size && isSameTime(before.st_mtim, after.st_mtim) &&
           isSameTime(before.st_ctim, after.st_ctim);
}

std::error_code systemError(int number) { return {number, std::generic_category()}; }

/// Fills `buffer` unless the file ends before. Returns the bytes read; on failure `error` says why.
std::size_t readChunk(int descriptor, char* buffer, std::size_t size, std::error_code& error) {
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t count = ::read(descriptor, buffer + filled, size - filled);
        if (count == 0) break;
        if (count > 0) {
            filled += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            error = systemError(errno);
            break;
        }
    }
    return filled;
}

/// One reading of an open file from begin to end.
class Pass {
public:
    Pass(const RegularFile& file, DigestSet wanted)
        : descriptor_(file.descriptor.get()),
          before_(file.status),
          size_(static_cast<std::uint64_t>(before_.st_size)),
          wanted_(wanted),
          group_(wanted) {}

    FileDigests run(const std::function<bool()>& shouldStop) {
        FileDigests made;
        made.isStopped = !readAll(shouldStop, made.error);
        if (made.isStopped || made.error) return made;
        struct ::stat after {};
        if (::fstat(descriptor_, &after) != 0) {
            made.error = systemError(errno);
        } else if (!isUnchanged(before_, after)) {
            made.error = ReadFailure::changedMeanwhile;
        } else if (taken_ != size_) {
            // Content without a size is made while it is read.
            if (size_ != 0) made.error = ReadFailure::changedMeanwhile;
        } else {
            takeTexts(made);
        }
        return made;
    }

private:
    /// False if it was stopped.
    bool readAll(const std::function<bool()>& shouldStop, std::error_code& error) {
        // A byte more than there should be shows that the file has grown; an endless one ends here.
        const std::uint64_t most = size_ + 1;
        const std::size_t bufferSize = std::min<std::uint64_t>(most, digestChunkSize);
        const auto buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
        while (taken_ < most) {
            if (shouldStop()) return false;
            const std::size_t wanted = std::min<std::uint64_t>(bufferSize, most - taken_);
            const std::size_t count = readChunk(descriptor_, buffer.get(), wanted, error);
            if (error) return true;
            group_.update(std::string_view(buffer.get(), count));
            taken_ += count;
            if (count < wanted) return true;
        }
        return true;
    }

    void takeTexts(FileDigests& made) {
        made.texts = group_.finish();
        for (std::size_t i = 0; i < digestCount; ++i) {
            if (wanted_.test(i) && !made.texts[i]) made.error = systemError(ENOTSUP);
        }
    }

    const int descriptor_;
    const struct ::stat before_;
    const std::uint64_t size_;
    const DigestSet wanted_;
    DigestGroup group_;
    std::uint64_t taken_ = 0;
};

FileDigests digestsOnce(const std::string& path, DigestSet wanted,
                        const std::function<bool()>& shouldStop) {
    FileDigests made;
    int error = 0;
    const RegularFile file = openRegularFile(path, error);
    if (error != 0) made.error = systemError(error);
    const int descriptor = file.descriptor.get();
    if (!file.descriptor.isOpen() || isMadeWhileRead(descriptor)) return made;
    const CacheFootprint footprint(descriptor, static_cast<std::uint64_t>(file.status.st_size));
    made = Pass(file, wanted).run(shouldStop);
    // A regular file never makes its reader wait; what does is one of the kernel's oddities.
    if (made.error == std::errc::resource_unavailable_try_again) made.error.clear();
    return made;
}

}  // namespace

FileDigests digestsOfFile(const std::string& path, DigestSet wanted,
                          const std::function<bool()>& shouldStop) {
    const FileDigests made = digestsOnce(path, wanted, shouldStop);
    const bool hasChanged =
        made.error == ReadFailure::changedMeanwhile || made.error == systemError(ESTALE);
    return hasChanged ? digestsOnce(path, wanted, shouldStop) : made;
}

}  // namespace marquell::platform
