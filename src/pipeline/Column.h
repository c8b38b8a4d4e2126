// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "metadata/MetadataKey.h"
#include "metadata/MetadataSource.h"

namespace marquell::pipeline {

class Node;

/// A column id with everything looked up that does not depend on the node: where its values come
/// from. Whoever reads a column of many nodes makes one of these first.
class Column {
public:
    /// Any text; one that is no known column has no values.
    explicit Column(std::string_view columnId);

    enum class Origin {
        path,        ///< a part of the node's path
        tags,        ///< the file's tags
        pathLength,  ///< the number of characters of the path
        source,      ///< a metadata source
        nowhere,     ///< an unknown id
    };

    std::string id;
    Origin origin = Origin::nowhere;
    /// Of Origin::path: the part, absent when the node has none.
    std::optional<std::string_view> (*pathPart)(const Node& node) = nullptr;
    /// The source and key that the catalogue gives to the id, also when the node answers it.
    std::optional<metadata::MetadataSource> source;
    metadata::MetadataKey key = {};
};

}  // namespace marquell::pipeline
