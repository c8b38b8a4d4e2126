// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::bench {

/// As long as it lives, all files of this process are on a disk that takes 50 MB a second, and
/// half a second to say that it has them. One at a time.
class SlowDisk {
public:
    SlowDisk();
    SlowDisk(const SlowDisk&) = delete;
    SlowDisk& operator=(const SlowDisk&) = delete;
    ~SlowDisk();
};

}  // namespace marquell::bench
