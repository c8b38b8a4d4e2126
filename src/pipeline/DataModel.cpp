// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/DataModel.h"

#include <string>

namespace marquell::pipeline {
namespace {

using platform::UserDefaults;

const DataModelSnapshot& firstLaunch() {
    static const DataModelSnapshot snapshot;
    return snapshot;
}

/// Makes the variables of one store.
struct Maker {
    const std::shared_ptr<UserDefaults>& defaults;

    template <typename T>
    std::shared_ptr<variables::UserDefaultsVariable<T>> operator()(const char* key,
                                                                   T initialValue) const {
        if constexpr (std::is_enum_v<T>) {
            return std::make_shared<variables::RawRepresentableUserDefaultsVariable<T>>(
                key, initialValue, defaults);
        } else {
            return std::make_shared<variables::UserDefaultsVariable<T>>(key, initialValue,
                                                                        defaults);
        }
    }
};

template <typename T>
auto unstored(T initialValue) {
    return std::make_shared<variables::StraightVariable<T>>(initialValue);
}

constexpr double firstInfoPaneHeight = 150.0;

int tabIndex(int previewMode, bool waitingForData) { return waitingForData ? 0 : previewMode + 1; }

}  // namespace

DataModel::DataModel(const std::shared_ptr<UserDefaults>& userDefaults)
    : processFiles(Maker{userDefaults}("processFiles", firstLaunch().processFiles)),
      processFolders(Maker{userDefaults}("processFolders", firstLaunch().processFolders)),
      // The key's spelling is the one that users' files have.
      processSubFolders(Maker{userDefaults}("prodcessSubfolders", firstLaunch().processSubFolders)),
      outputFormat(Maker{userDefaults}("outputFormat", firstLaunch().outputFormat)),
      firstSortMode(Maker{userDefaults}("firstSortMode", firstLaunch().firstSortMode)),
      secondSortMode(Maker{userDefaults}("secondSortMode", firstLaunch().secondSortMode)),
      includeColumnTitlesMode(
          Maker{userDefaults}("includeColumnTitlesMode", firstLaunch().includeColumnTitlesMode)),
      quoteStrings(Maker{userDefaults}("quoteStrings", firstLaunch().quoteStrings)),
      boolValuesMode(Maker{userDefaults}("boolValuesMode", firstLaunch().boolValuesMode)),
      nullValuesMode(Maker{userDefaults}("nullValuesMode", firstLaunch().nullValuesMode)),
      dateFormatMode(Maker{userDefaults}("dateFormatMode", firstLaunch().dateFormatMode)),
      multiLineMode(Maker{userDefaults}("multiLineMode", firstLaunch().multiLineMode)),
      linebreaksMode(Maker{userDefaults}("linebreaksMode", firstLaunch().linebreaksMode)),
      encodingMode(Maker{userDefaults}("encodingMode", firstLaunch().encodingMode)),
      htmlIndentationMode(
          Maker{userDefaults}("htmlIndentationMode", firstLaunch().htmlIndentationMode)),
      htmlColumnIdHeaderMode(
          Maker{userDefaults}("htmlColumnIdHeaderMode", firstLaunch().htmlColumnIdHeaderMode)),
      htmlColumnClassMode(
          Maker{userDefaults}("htmlColumnClassMode", firstLaunch().htmlColumnClassMode)),
      jsonIndentationMode(
          Maker{userDefaults}("jsonIndentationMode", firstLaunch().jsonIndentationMode)),
      jsonDateFormatMode(
          Maker{userDefaults}("jsonDateFormatMode", firstLaunch().jsonDateFormatMode)),
      infoPaneCategory(Maker{userDefaults}("infoPaneCategory", 0)),
      infoPaneHeight(Maker{userDefaults}("infoPaneHeight", firstInfoPaneHeight)),
      infoPaneIsCollapsed(Maker{userDefaults}("infoPaneIsCollapsed", false)),
      showTagTableView(unstored(false)),
      sourceList(userDefaults),
      columnList(userDefaults),
      previewMode(Maker{userDefaults}("previewMode", 0)),
      waitingForData(unstored(true)),
      previewTabIndex(std::make_shared<variables::CombinedVariable<int, int, bool>>(
          previewMode, waitingForData, &tabIndex)),
      defaults(userDefaults) {
    defaults->registerDefault(columnList.storageKey, firstLaunch().columnList);
}

DataModelSnapshot DataModel::createSnapshot() const {
    return {
        .processFiles = processFiles->value(),
        .processFolders = processFolders->value(),
        .processSubFolders = processSubFolders->value(),
        .outputFormat = outputFormat->value(),
        .firstSortMode = firstSortMode->value(),
        .secondSortMode = secondSortMode->value(),
        .quoteStrings = quoteStrings->value(),
        .includeColumnTitlesMode = includeColumnTitlesMode->value(),
        .boolValuesMode = boolValuesMode->value(),
        .nullValuesMode = nullValuesMode->value(),
        .dateFormatMode = dateFormatMode->value(),
        .multiLineMode = multiLineMode->value(),
        .linebreaksMode = linebreaksMode->value(),
        .encodingMode = encodingMode->value(),
        .htmlIndentationMode = htmlIndentationMode->value(),
        .htmlColumnIdHeaderMode = htmlColumnIdHeaderMode->value(),
        .htmlColumnClassMode = htmlColumnClassMode->value(),
        .jsonIndentationMode = jsonIndentationMode->value(),
        .jsonDateFormatMode = jsonDateFormatMode->value(),
        .sourceList = sourceList.value(),
        .columnList = columnList.value(),
    };
}

}  // namespace marquell::pipeline
