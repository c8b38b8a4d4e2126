// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace marquell::platform {

/// Keeps one pass over a large file from pushing what others use out of the system's file cache:
/// what the pass brought in goes out again at the end of this object's life, unless some of the
/// file was in the cache before. Where that can't be told, as for files that the user may only
/// read, all stays. Small files stay too: they cost little room and are likely to be read again.
class CacheFootprint {
public:
    /// For an open regular file of `size` bytes that is about to be read from begin to end. The
    /// descriptor stays the caller's and must outlive this.
    CacheFootprint(int descriptor, std::uint64_t size);
    ~CacheFootprint();
    CacheFootprint(const CacheFootprint&) = delete;
    CacheFootprint& operator=(const CacheFootprint&) = delete;

private:
    const int descriptor_;
    const bool isCleared_;
};

}  // namespace marquell::platform
