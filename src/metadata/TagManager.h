// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "metadata/DescriptiveTagSpace.h"
#include "metadata/MetadataSource.h"

namespace marquell::metadata {

/// The vocabulary of columns: every id, where it is listed, who delivers it, how it is called.
/// Complete when made and never written afterwards, so any thread may read it without a lock. Its
/// texts are those of the language in force when it was made. Ids live as long as the program.
class TagManager {
public:
    using DescriptiveTagSpace = metadata::DescriptiveTagSpace;
    using IdList = std::vector<std::string_view>;

    TagManager();

    /// The program's own, made on first use; never destroyed.
    static const TagManager& shared();

    /// Ids of each tag space in menu order, without separators.
    const std::map<DescriptiveTagSpace, IdList> columnIDArrayForDescriptiveTag;
    /// Titles of the tag spaces by raw value, with "-" rows between groups.
    const std::vector<std::string> localizedTagCategories;
    /// The same rows in few words.
    const std::vector<std::string> localizedBriefTagCategories;
    const std::unordered_map<std::string_view, DescriptiveTagSpace>
        columnIDsToDescriptiveTagSpaceMapping;
    /// By raw value of the tag space: ids in menu order, with "-" rows.
    const std::vector<IdList> columnIDsByCategory;
    /// Holds also the keys that no tag space lists.
    const std::unordered_map<std::string_view, MetadataSource> metaDataKeysToSourceMapping;
    /// Rows of the tag table, with "-" rows.
    const IdList columnIDs;
    const std::unordered_map<std::string_view, std::string> columnNameTranslations;
    /// Keys with a source that no tag space lists.
    const IdList keysWithoutTagSpace;

    /// The id itself if it has no name. The view lives as long as this object and `id`.
    std::string_view displayName(std::string_view id) const;

    /// What tells the space's columns apart from equally named ones; Basic and Size have none.
    std::optional<std::string_view> localizedAbbreviation(DescriptiveTagSpace space) const;

    /// The abbreviation of the id's tag space, if it has a tag space and that an abbreviation.
    std::optional<std::string_view> abbreviation(std::string_view id) const;

    /// Display name with the abbreviation, if there is one: "Lens Model (EXIF)".
    std::string decoratedTitle(std::string_view id) const;

    /// None for ids whose values come from the node itself, and for unknown ones.
    std::optional<MetadataSource> source(std::string_view key) const;

    /// Ids of the tag space with this raw value, as settings store it; empty if there is no such
    /// space.
    std::span<const std::string_view> columns(int rawTagSpace) const;

private:
    const std::vector<std::string> abbreviations_;  // by raw value; "" for none
};

}  // namespace marquell::metadata
