// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

#include "metadata/DescriptiveTagSpace.h"
#include "metadata/MetadataSource.h"

/// The literal tables that `TagManager` is built from. Ids are ASCII and live as long as the
/// program; titles and names are English, not yet looked up for the user's language.
namespace marquell::metadata::catalogue {

/// Stands in a list of ids or titles for a dividing line.
inline constexpr std::string_view separator = "-";

struct TagSpaceRow {
    DescriptiveTagSpace space;
    std::string_view title;
    std::string_view briefTitle;
    std::string_view abbreviation;           ///< empty: columns of this space are shown undecorated
    MetadataSource source;                   ///< of all ids in `menu`, save those of `idsOfTheNode`
    std::span<const std::string_view> menu;  ///< in menu order, with separators
    bool separatorFollows;                   ///< in the list of categories
};

struct KeySource {
    std::string_view key;
    MetadataSource source;
};

struct ColumnName {
    std::string_view id;
    std::string_view english;
};

struct ColumnNameFamily {
    const char* context;  ///< tells translators where the names stand
    std::span<const ColumnName> names;
};

/// All tag spaces, by raw value.
std::span<const TagSpaceRow> tagSpaces();

/// Ids of a tag space whose values come from the node itself, so that no source delivers them.
std::span<const std::string_view> idsOfTheNode();

/// Keys that a source delivers though no menu offers them.
std::span<const KeySource> keysWithoutTagSpace();

/// The rows of the tag table, with separators.
std::span<const std::string_view> tagTableRows();

/// One name for each id that has one.
std::span<const ColumnNameFamily> columnNames();

}  // namespace marquell::metadata::catalogue
