// SPDX-License-Identifier: GPL-3.0-or-later
#include "ColumnArguments.h"

#include <algorithm>

#include "Messages.h"
#include "metadata/TagManager.h"

namespace marquell::apps {
namespace {

using metadata::DescriptiveTagSpace;
using metadata::TagManager;

std::vector<std::string_view> allColumns() {
    const TagManager& catalogue = TagManager::shared();
    std::vector<std::string_view> ids;
    for (const auto& [space, spaceIds] : catalogue.columnIDArrayForDescriptiveTag) {
        ids.insert(ids.end(), spaceIds.begin(), spaceIds.end());
    }
    ids.insert(ids.end(), catalogue.keysWithoutTagSpace.begin(),
               catalogue.keysWithoutTagSpace.end());
    return ids;
}

std::vector<std::string_view> tagSpaceNames() {
    std::vector<std::string_view> names;
    for (const DescriptiveTagSpace space : metadata::allDescriptiveTagSpaces) {
        names.push_back(caseName(space));
    }
    return names;
}

std::optional<std::string> appendTagSpace(std::string_view name,
                                          std::vector<std::string>& columns) {
    const auto& spaces = metadata::allDescriptiveTagSpaces;
    const auto space = std::find_if(spaces.begin(), spaces.end(), [name](DescriptiveTagSpace each) {
        return caseName(each) == name;
    });
    if (space == spaces.end()) {
        return "tag space " + quoted(name) + ": there is no such tag space" +
               suggestion(name, tagSpaceNames()) + " See --list-columns";
    }
    const auto& ids = TagManager::shared().columnIDArrayForDescriptiveTag.at(*space);
    columns.insert(columns.end(), ids.begin(), ids.end());
    return std::nullopt;
}

std::optional<std::string> appendColumn(std::string_view id, std::vector<std::string>& columns) {
    if (id.starts_with('@')) return appendTagSpace(id.substr(1), columns);
    const TagManager& catalogue = TagManager::shared();
    if (!catalogue.columnIDsToDescriptiveTagSpaceMapping.contains(id) && !catalogue.source(id)) {
        return "column " + quoted(id) + ": there is no such column" + suggestion(id, allColumns()) +
               " See --list-columns";
    }
    columns.emplace_back(id);
    return std::nullopt;
}

}  // namespace

std::optional<std::string> appendColumns(std::string_view argument,
                                         std::vector<std::string>& columns) {
    while (!argument.empty()) {
        const std::size_t comma = argument.find(',');
        if (auto problem = appendColumn(argument.substr(0, comma), columns)) return problem;
        if (comma == std::string_view::npos) break;
        argument.remove_prefix(comma + 1);
        if (argument.empty()) return appendColumn({}, columns);
    }
    return std::nullopt;
}

std::string catalogueText() {
    const TagManager& catalogue = TagManager::shared();
    std::string text = "id\ttag space\tsource\tdisplay name\tabbreviation\n";
    for (const std::string_view id : allColumns()) {
        const auto space = catalogue.columnIDsToDescriptiveTagSpaceMapping.find(id);
        const bool hasSpace = space != catalogue.columnIDsToDescriptiveTagSpaceMapping.end();
        const auto source = catalogue.source(id);
        text.append(id).append("\t");
        text.append(hasSpace ? caseName(space->second) : "").append("\t");
        text.append(source ? caseName(*source) : "").append("\t");
        text.append(catalogue.displayName(id)).append("\t");
        text.append(catalogue.abbreviation(id).value_or("")).append("\n");
    }
    return text;
}

}  // namespace marquell::apps
