// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/TagManager.h"

#include <cstddef>

#include "metadata/CatalogueTable.h"
#include "platform/Localization.h"

namespace marquell::metadata {

namespace {

using catalogue::separator;
using catalogue::TagSpaceRow;
using IdList = TagManager::IdList;

/// Calls `use(row, id)` for each id of each tag space, in menu order.
template <typename Use>
void forEachColumn(Use use) {
    for (const TagSpaceRow& row : catalogue::tagSpaces()) {
        for (std::string_view id : row.menu) {
            if (id != separator) use(row, id);
        }
    }
}

auto makeColumnsOfTagSpaces() {
    std::map<DescriptiveTagSpace, IdList> columns;
    forEachColumn(
        [&](const TagSpaceRow& row, std::string_view id) { columns[row.space].push_back(id); });
    return columns;
}

std::vector<std::string> makeCategories(std::string_view TagSpaceRow::*title) {
    std::vector<std::string> categories;
    for (const TagSpaceRow& row : catalogue::tagSpaces()) {
        categories.push_back(platform::localized(row.*title, "tag category name"));
        if (row.separatorFollows) categories.emplace_back(separator);
    }
    return categories;
}

auto makeTagSpaceMapping() {
    std::unordered_map<std::string_view, DescriptiveTagSpace> mapping;
    forEachColumn(
        [&](const TagSpaceRow& row, std::string_view id) { mapping.emplace(id, row.space); });
    return mapping;
}

std::vector<IdList> makeMenus() {
    std::vector<IdList> menus;
    for (const TagSpaceRow& row : catalogue::tagSpaces()) {
        menus.emplace_back(row.menu.begin(), row.menu.end());
    }
    return menus;
}

auto makeSourceMapping() {
    std::unordered_map<std::string_view, MetadataSource> mapping;
    forEachColumn(
        [&](const TagSpaceRow& row, std::string_view id) { mapping.emplace(id, row.source); });
    for (std::string_view id : catalogue::idsOfTheNode()) mapping.erase(id);
    for (const auto& [key, source] : catalogue::keysWithoutTagSpace()) mapping.emplace(key, source);
    return mapping;
}

auto makeColumnNames() {
    std::unordered_map<std::string_view, std::string> translations;
    for (const auto& [context, names] : catalogue::columnNames()) {
        for (const auto& [id, english] : names) {
            translations.emplace(id, platform::localized(english, context));
        }
    }
    return translations;
}

IdList makeTagTable() {
    const auto rows = catalogue::tagTableRows();
    return {rows.begin(), rows.end()};
}

IdList makeKeysWithoutTagSpace() {
    IdList keys;
    for (const auto& row : catalogue::keysWithoutTagSpace()) keys.push_back(row.key);
    return keys;
}

std::vector<std::string> makeAbbreviations() {
    std::vector<std::string> abbreviations;
    for (const TagSpaceRow& row : catalogue::tagSpaces()) {
        abbreviations.push_back(
            platform::localized(row.abbreviation, "Descriptive Tag Space Abbreviation"));
    }
    return abbreviations;
}

}  // namespace

TagManager::TagManager()
    : columnIDArrayForDescriptiveTag(makeColumnsOfTagSpaces()),
      localizedTagCategories(makeCategories(&TagSpaceRow::title)),
      localizedBriefTagCategories(makeCategories(&TagSpaceRow::briefTitle)),
      columnIDsToDescriptiveTagSpaceMapping(makeTagSpaceMapping()),
      columnIDsByCategory(makeMenus()),
      metaDataKeysToSourceMapping(makeSourceMapping()),
      columnIDs(makeTagTable()),
      columnNameTranslations(makeColumnNames()),
      keysWithoutTagSpace(makeKeysWithoutTagSpace()),
      abbreviations_(makeAbbreviations()) {}

const TagManager& TagManager::shared() {
    // Not destroyed at exit: threads that still run then may read it.
    static const TagManager& manager = *new TagManager;
    return manager;
}

std::string_view TagManager::displayName(std::string_view id) const {
    const auto name = columnNameTranslations.find(id);
    return name == columnNameTranslations.end() ? id : std::string_view(name->second);
}

std::optional<std::string_view> TagManager::localizedAbbreviation(DescriptiveTagSpace space) const {
    const auto index = static_cast<std::size_t>(space);
    if (index >= abbreviations_.size() || abbreviations_[index].empty()) return std::nullopt;
    return abbreviations_[index];
}

std::optional<std::string_view> TagManager::abbreviation(std::string_view id) const {
    const auto space = columnIDsToDescriptiveTagSpaceMapping.find(id);
    if (space == columnIDsToDescriptiveTagSpaceMapping.end()) return std::nullopt;
    return localizedAbbreviation(space->second);
}

std::string TagManager::decoratedTitle(std::string_view id) const {
    std::string title(displayName(id));
    if (const auto suffix = abbreviation(id)) title.append(" (").append(*suffix).append(")");
    return title;
}

std::optional<MetadataSource> TagManager::source(std::string_view key) const {
    const auto entry = metaDataKeysToSourceMapping.find(key);
    if (entry == metaDataKeysToSourceMapping.end()) return std::nullopt;
    return entry->second;
}

std::span<const std::string_view> TagManager::columns(int rawTagSpace) const {
    const auto entry =
        columnIDArrayForDescriptiveTag.find(static_cast<DescriptiveTagSpace>(rawTagSpace));
    if (entry == columnIDArrayForDescriptiveTag.end()) return {};
    return entry->second;
}

}  // namespace marquell::metadata
