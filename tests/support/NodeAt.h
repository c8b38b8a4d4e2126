// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "pipeline/Node.h"
#include "platform/Path.h"

namespace marquell::tests {

/// The node of a file, be it there or not.
inline std::shared_ptr<pipeline::Node> nodeAt(const std::string& path,
                                              std::string_view relativePath = {}) {
    pipeline::NodeArena arena;
    return arena.make<pipeline::FileNode>(platform::lastPathComponent(path), path, relativePath);
}

}  // namespace marquell::tests
