// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <system_error>

#include "platform/DigestGroup.h"

namespace marquell::platform {

/// Bytes of a file that are read and digested at a time, which is also the memory that a call
/// needs. Large enough to be worth sharing among threads, small enough to stop soon: all digests of
/// it take some 5 ms.
inline constexpr std::size_t digestChunkSize = std::size_t{1024} * 1024;

/// What came of reading a file for its digests. Without texts and without an error there is nothing
/// to digest: the path leads to a folder, a FIFO or a device, or the system makes the content up
/// while it is read, as below /proc.
struct FileDigests {
    DigestTexts texts;
    std::error_code error;   ///< why some wanted text is missing
    bool isStopped = false;  ///< then there are no texts
};

/// Reads a file once, links followed, for the wanted digests. The texts are only those of a content
/// that stood still from begin to end: after a change the file is opened and read once more, and
/// another one is ReadFailure::changedMeanwhile. The error is ENOTSUP when the system's
/// cryptography lacks a wanted algorithm; the others have their texts then. `shouldStop` is asked
/// before each chunk, on the caller's thread.
FileDigests digestsOfFile(const std::string& path, DigestSet wanted,
                          const std::function<bool()>& shouldStop);

}  // namespace marquell::platform
