// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "platform/DescriptorIo.h"

namespace marquell::platform {

struct AtomicWriting {
    mode_t newMode = 0666;  ///< of a file that is new, less what the process's mask takes away
    /// Whether a lock keeps others from writing the file meanwhile. The temporary name is then
    /// always the same, so that the next write takes away what a killed one left there.
    bool isAlone = false;
};

/// Puts the bytes of `source` at `path` whole or not at all. A regular file, or a new one, is
/// written beside the target under a temporary name, synced and renamed over it; links are
/// followed. What an old file had beside its content is kept as far as may be (see FileHeritage.h),
/// but its other hard links keep the old content, and that it was protected from writing does not
/// save it. A FIFO or device is written straight, and so is a descriptor of ours, to which
/// /dev/stdout leads: what the descriptor's file already holds stays. Returns 0 or errno, be it the
/// source's; after a failure the old file stands and nothing else is left behind.
int writeFileAtomically(const std::string& path, const ByteSource& source,
                        const AtomicWriting& how = {});
int writeFileAtomically(const std::string& path, std::string_view bytes,
                        const AtomicWriting& how = {});

/// Whether writeFileAtomically has a chance, as far as can be told without writing: 0, or the errno
/// that it would meet. For those who have long work to do before they write.
int destinationError(const std::string& path);

}  // namespace marquell::platform
