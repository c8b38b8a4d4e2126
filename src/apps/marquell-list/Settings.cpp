// SPDX-License-Identifier: GPL-3.0-or-later
#include "Settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <variant>
#include <vector>

#include "Messages.h"

namespace marquell::apps {
namespace {

using pipeline::DataModelSnapshot;

enum class Values { truth, sortMode, mode };

struct Setting {
    std::string_view name;
    std::variant<bool DataModelSnapshot::*, int DataModelSnapshot::*> field;
    Values values;
};

constexpr std::array<Setting, 18> settings = {{
    {"processFiles", &DataModelSnapshot::processFiles, Values::truth},
    {"processFolders", &DataModelSnapshot::processFolders, Values::truth},
    {"processSubFolders", &DataModelSnapshot::processSubFolders, Values::truth},
    {"firstSortMode", &DataModelSnapshot::firstSortMode, Values::sortMode},
    {"secondSortMode", &DataModelSnapshot::secondSortMode, Values::sortMode},
    {"quoteStrings", &DataModelSnapshot::quoteStrings, Values::truth},
    {"includeColumnTitlesMode", &DataModelSnapshot::includeColumnTitlesMode, Values::mode},
    {"boolValuesMode", &DataModelSnapshot::boolValuesMode, Values::mode},
    {"nullValuesMode", &DataModelSnapshot::nullValuesMode, Values::mode},
    {"dateFormatMode", &DataModelSnapshot::dateFormatMode, Values::mode},
    {"multiLineMode", &DataModelSnapshot::multiLineMode, Values::mode},
    {"linebreaksMode", &DataModelSnapshot::linebreaksMode, Values::mode},
    {"encodingMode", &DataModelSnapshot::encodingMode, Values::mode},
    {"htmlIndentationMode", &DataModelSnapshot::htmlIndentationMode, Values::mode},
    {"htmlColumnIdHeaderMode", &DataModelSnapshot::htmlColumnIdHeaderMode, Values::mode},
    {"htmlColumnClassMode", &DataModelSnapshot::htmlColumnClassMode, Values::mode},
    {"jsonIndentationMode", &DataModelSnapshot::jsonIndentationMode, Values::mode},
    {"jsonDateFormatMode", &DataModelSnapshot::jsonDateFormatMode, Values::mode},
}};

/// Parts of the snapshot that have a place of their own on the command line.
struct OwnPlace {
    std::string_view name;
    std::string_view place;
};
constexpr std::array<OwnPlace, 3> ownPlaces = {{
    {"outputFormat", "-f"},
    {"sourceList", "a PATH or --from0"},
    {"columnList", "-c"},
}};

std::string_view expectation(Values values) {
    switch (values) {
        case Values::truth:
            return "true, false, 1 or 0";
        case Values::sortMode:
            return "a sort mode from 0 to 15";
        case Values::mode:
            return "a whole number";
    }
    return {};
}

std::optional<bool> truth(std::string_view text) {
    if (text == "true" || text == "1") return true;
    if (text == "false" || text == "0") return false;
    return std::nullopt;
}

std::optional<int> number(std::string_view text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end) return std::nullopt;
    return value;
}

bool assign(const Setting& setting, std::string_view text, DataModelSnapshot& snapshot) {
    if (const auto* field = std::get_if<bool DataModelSnapshot::*>(&setting.field)) {
        const auto value = truth(text);
        if (value) snapshot.** field = *value;
        return value.has_value();
    }
    const auto value = number(text);
    const bool fits =
        value && (setting.values != Values::sortMode || (*value >= 0 && *value <= 15));
    if (fits) snapshot.*std::get<int DataModelSnapshot::*>(setting.field) = *value;
    return fits;
}

std::vector<std::string_view> names() {
    std::vector<std::string_view> all;
    for (const Setting& setting : settings) all.push_back(setting.name);
    return all;
}

std::string unknownSetting(std::string_view name) {
    for (const OwnPlace& own : ownPlaces) {
        if (own.name == name) {
            return "setting " + quoted(name) + " is given by " + std::string(own.place);
        }
    }
    return "setting " + quoted(name) + ": there is no such setting" + suggestion(name, names()) +
           " The settings are: " + settingNames();
}

}  // namespace

std::string settingNames() {
    std::string list;
    for (const std::string_view name : names()) list.append(list.empty() ? "" : ", ").append(name);
    return list;
}

std::optional<std::string> applySetting(std::string_view assignment, DataModelSnapshot& snapshot) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string_view::npos) {
        return "option -s: found " + quoted(assignment) + ", expected NAME=VALUE";
    }
    const std::string_view name = assignment.substr(0, equals);
    const std::string_view value = assignment.substr(equals + 1);
    const auto setting = std::find_if(settings.begin(), settings.end(),
                                      [name](const Setting& row) { return row.name == name; });
    if (setting == settings.end()) return unknownSetting(name);
    if (assign(*setting, value, snapshot)) return std::nullopt;
    return "setting " + quoted(name) + ": found " + quoted(value) + ", expected " +
           std::string(expectation(setting->values));
}

}  // namespace marquell::apps
