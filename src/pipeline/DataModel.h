// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "lists/ColumnListData.h"
#include "lists/SourceListData.h"
#include "pipeline/DataModelSnapshot.h"
#include "platform/UserDefaults.h"
#include "variables/CombinedVariable.h"
#include "variables/StraightVariable.h"
#include "variables/UserDefaultsVariable.h"

namespace marquell::pipeline {

/// Every setting of the program as a variable. All but the ones said to be unstored live in the
/// user's settings, nearly all under their own name; the values of a first launch are those of a
/// new DataModelSnapshot. Main thread only: what runs elsewhere has a snapshot.
class DataModel {
    template <typename T>
    using Stored = const std::shared_ptr<variables::UserDefaultsVariable<T>>;
    template <typename T>
    using Unstored = const std::shared_ptr<variables::StraightVariable<T>>;

public:
    /// Registers the defaults of all keys. The variables stay the same from then on.
    explicit DataModel(const std::shared_ptr<platform::UserDefaults>& defaults);

    Stored<bool> processFiles;
    Stored<bool> processFolders;
    Stored<bool> processSubFolders;
    Stored<OutputFormatIndexEnum> outputFormat;
    Stored<int> firstSortMode;
    Stored<int> secondSortMode;
    Stored<int> includeColumnTitlesMode;
    Stored<bool> quoteStrings;
    Stored<int> boolValuesMode;
    Stored<int> nullValuesMode;
    Stored<int> dateFormatMode;
    Stored<int> multiLineMode;
    Stored<int> linebreaksMode;
    Stored<int> encodingMode;
    Stored<int> htmlIndentationMode;
    Stored<int> htmlColumnIdHeaderMode;
    Stored<int> htmlColumnClassMode;
    Stored<int> jsonIndentationMode;
    Stored<int> jsonDateFormatMode;
    Stored<int> infoPaneCategory;
    Stored<double> infoPaneHeight;
    Stored<bool> infoPaneIsCollapsed;
    Unstored<bool> showTagTableView;
    lists::SourceListData sourceList;
    lists::ColumnListData columnList;
    Stored<int> previewMode;
    Unstored<bool> waitingForData;
    /// The tab of the preview: 0 while there is nothing to show, else one for each preview mode.
    const std::shared_ptr<variables::CombinedVariable<int, int, bool>> previewTabIndex;

    const std::shared_ptr<platform::UserDefaults> defaults;

    /// A copy of all that a run depends on.
    DataModelSnapshot createSnapshot() const;
};

}  // namespace marquell::pipeline
