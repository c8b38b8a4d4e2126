// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/Column.h"

#include <algorithm>
#include <array>

#include "metadata/TagManager.h"
#include "pipeline/Node.h"

namespace marquell::pipeline {
namespace {

using Part = std::optional<std::string_view>;

struct NodeColumn {
    std::string_view id;
    Column::Origin origin;
    Part (*part)(const Node& node);
};

/// The columns that a node answers itself, before any source is asked.
constexpr std::array<NodeColumn, 10> nodeColumns = {{
    {"name", Column::Origin::path, [](const Node& n) -> Part { return n.name(); }},
    {"absolute_path", Column::Origin::path, [](const Node& n) -> Part { return n.absolutePath(); }},
    {"file_name", Column::Origin::path, [](const Node& n) -> Part { return n.fileName(); }},
    {"file_name_without_any_extensions", Column::Origin::path,
     [](const Node& n) -> Part { return n.fileNameUpToFirstPeriod(); }},
    {"parent", Column::Origin::path, [](const Node& n) -> Part { return n.parent(); }},
    {"absolute_parent_path", Column::Origin::path,
     [](const Node& n) -> Part { return n.absoluteParentPath(); }},
    {"relative_path", Column::Origin::path, [](const Node& n) -> Part { return n.relativePath(); }},
    {"extension", Column::Origin::path, [](const Node& n) -> Part { return n.fileExtension(); }},
    {"tags", Column::Origin::tags, nullptr},
    {"full_path_name_length", Column::Origin::pathLength, nullptr},
}};

}  // namespace

Column::Column(std::string_view columnId)
    : id(columnId), source(metadata::TagManager::shared().source(columnId)) {
    if (source) {
        origin = Origin::source;
        key = metadata::metadataKey(columnId);
    }
    const auto own = std::find_if(nodeColumns.begin(), nodeColumns.end(),
                                  [columnId](const NodeColumn& row) { return row.id == columnId; });
    if (own != nodeColumns.end()) {
        origin = own->origin;
        pathPart = own->part;
    }
}

}  // namespace marquell::pipeline
