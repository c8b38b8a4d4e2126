// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <mutex>

namespace marquell::pipeline {

/// A fixed number of locks that any number of objects share by their address: a lock in each of a
/// million nodes would cost more memory than all else that is rarely used.
class StripedLocks {
public:
    std::mutex& of(const void* object) {
        return locks_[std::hash<const void*>{}(object) / 64 % locks_.size()].mutex;
    }

private:
    struct alignas(64) Lock {
        std::mutex mutex;
    };
    std::array<Lock, 64> locks_;
};

}  // namespace marquell::pipeline
