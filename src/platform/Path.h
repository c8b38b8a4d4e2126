// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::platform {

// Paths are bytes as the file system gives them; nothing here looks at the disk, decodes or
// resolves links. "Absolute path" means one that starts with a slash, without doubled slashes and
// without a slash at its end but for the root itself.

/// The last component of an absolute path; "/" for the root.
std::string_view lastPathComponent(std::string_view path);

/// The path without its last component; "/" for the root and for what lies directly in it.
std::string_view deletingLastPathComponent(std::string_view path);

/// A name split at its last dot, unless that dot is the first character. `extension` is empty when
/// there is no such dot or nothing behind it; the stem then lacks the dot all the same.
struct NameParts {
    std::string_view stem;
    std::string_view extension;
};
NameParts splitExtension(std::string_view name);

/// `path` below `base` (an absolute path) unless it is absolute itself, with ".", "..", doubled
/// and trailing slashes resolved textually, links not. An empty path gives an empty result.
std::string absolutePath(std::string_view path, std::string_view base);

/// The folder that relative paths start from: $PWD if it names the current folder (so that links
/// keep their names), else the kernel's name of it. Empty when the folder has no name any more.
std::string currentFolder();

/// `folder` and `relative` with one slash between, also when `folder` is the root.
std::string joinPath(std::string_view folder, std::string_view relative);

}  // namespace marquell::platform
