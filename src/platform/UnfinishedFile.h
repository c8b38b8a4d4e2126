// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::platform {

/// Notes that a file of this name, in an open folder, is to be gone if the process is ended before
/// this object is. One at a time; a second one meanwhile is not noted.
class UnfinishedFile {
public:
    UnfinishedFile() = default;
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile() { forget(); }

    /// Before the file is made, so that no moment is without.
    void note(int folder, const std::string& name);
    void forget();

private:
    bool isNoted_ = false;
};

/// Has SIGINT, SIGTERM and SIGHUP take the noted file away before they end the process, but for
/// those that whoever started it has it ignore.
void tidyUpOnSignals();

}  // namespace marquell::platform
