// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "metadata/FileIndex.h"

namespace marquell::metadata {

/// What is known of a file without a reader.
struct IndexEntry {
    IndexItem item;          ///< the file's own dates stand in for those of its content
    std::string readerType;  ///< MIME type to choose a reader by; empty for what is no regular file
};

/// Absent for a dangling link, and for what can't be looked at, which is reported as a read
/// failure. The type is looked at if `depth` says so.
std::optional<IndexEntry> indexEntry(const std::string& path, FileIndex::Depth depth);

}  // namespace marquell::metadata
