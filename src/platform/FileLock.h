// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <string>

#include "platform/FileDescriptor.h"

namespace marquell::platform {

/// A lock between programs, held as long as this lives. It lies on a file of its own, which is made
/// if need be and stays.
class FileLock {
public:
    /// Tries for `patience` at most, or until another thread sets `isHurried`.
    FileLock(const std::string& path, std::chrono::milliseconds patience,
             const std::atomic<bool>& isHurried);

    /// 0 if the lock is held, EWOULDBLOCK if somebody else held it all the time, or another errno.
    int error() const { return error_; }

private:
    int tryOnce(const std::string& path);

    FileDescriptor file_;
    int error_ = 0;
};

}  // namespace marquell::platform
