// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Date.h"
#include "platform/FileDescriptor.h"

namespace marquell::platform {

// Every look at a path goes through this file, since the kernel refuses paths of 4,096 bytes and
// more: those are reached in pieces, folder by folder. All functions may be called from any thread.

/// What lies at a path, links followed. A dangling link and a missing path are `missing`.
enum class EntryKind { missing, folder, other };
EntryKind kindOf(const std::string& path);

/// Whether there is an entry of that name, be it a dangling link. `error` receives errno if not.
bool entryExists(const std::string& path, int& error);

/// What the file system says of an entry. A date that the file system doesn't keep is absent.
struct EntryAttributes {
    std::int64_t size = 0;
    std::optional<Date> creation;
    std::optional<Date> modification;
    unsigned type = 0;  ///< S_IFREG and so on
};

/// Of a link itself. Absent on failure, with errno in `error`.
std::optional<EntryAttributes> attributesOf(const std::string& path, int& error);

/// The same of what a link leads to.
std::optional<EntryAttributes> targetAttributesOf(const std::string& path, int& error);

/// The path of what a path leads to, with all links resolved. Absent on failure, with errno in
/// `error`; ENAMETOOLONG for paths that would have to be reached in pieces.
std::optional<std::string> realPath(const std::string& path, int& error);

/// Opens a path with `flags` (O_CLOEXEC is added). Not open on failure, with errno in `error`.
FileDescriptor openPath(const std::string& path, int flags, int& error);

/// The value of an extended attribute, links followed. Absent on failure, with errno in `error`;
/// ENODATA when there is no such attribute.
std::optional<std::string> extendedAttribute(const std::string& path, const char* name, int& error);

enum class DirectoryEntryKind { folder, link, other };

/// Calls `visit` with the name and kind of each entry but "." and "..", in the file system's order,
/// until it returns false. Returns 0, or errno when the folder could not be read to its end. A link
/// is not entered when `followLink` is false: the answer is then ENOTDIR.
/// `folder` is open during the visits, for links to be looked at with `linkLeadsToFolder`.
int readDirectory(
    const std::string& path, bool followLink,
    const std::function<bool(int folder, const char* name, DirectoryEntryKind kind)>& visit);

bool linkLeadsToFolder(int folder, const char* name);

}  // namespace marquell::platform
