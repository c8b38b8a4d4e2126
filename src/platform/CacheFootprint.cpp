// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/CacheFootprint.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>

namespace marquell::platform {
namespace {

constexpr std::uint64_t largeSize = std::uint64_t{64} * 1024 * 1024;
constexpr std::size_t sampleCount = 16;

/// Whether pages spread over the file are all out of the cache. False if the system doesn't say:
/// of files that the user can't write it claims that everything is in.
bool isUncached(int descriptor, std::size_t size) {
    void* const mapping = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor, 0);
    if (mapping == MAP_FAILED) return false;
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    bool isOut = true;
    // From the middle of each part: previews and type detection leave begins and ends in the cache.
    for (std::size_t i = 0; i < sampleCount && isOut; ++i) {
        const std::size_t middle = size / (2 * sampleCount) * (2 * i + 1);
        unsigned char residence = 0;
        isOut = ::mincore(static_cast<char*>(mapping) + middle / pageSize * pageSize, 1,
                          &residence) == 0 &&
                (residence & 1U) == 0;
    }
    ::munmap(mapping, size);
    return isOut;
}

}  // namespace

CacheFootprint::CacheFootprint(int descriptor, std::uint64_t size)
    : descriptor_(descriptor), isCleared_(size >= largeSize && isUncached(descriptor, size)) {
    ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
}

CacheFootprint::~CacheFootprint() {
    // Once for the whole file: clearing piece by piece leaves what was read ahead.
    if (isCleared_) ::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_DONTNEED);
}

}  // namespace marquell::platform
