// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TextEncoding.h"
#include "platform/TextList.h"

namespace marquell::pipeline {

/// The raw values are what settings store.
enum class OutputFormatIndexEnum : int {
    CSV = 0,
    TSV = 1,
    JSON = 5,
    HTML = 2,
    CopyToHTML = 3,
    CopyToExcel = 4,
};

/// Whether the value is one of the cases, whatever number it was made from.
bool isCase(OutputFormatIndexEnum value);

using platform::TextEncoding;

/// Every parameter of one run. Stages read nothing else, so that a run goes on with the settings
/// that it started with; once handed to a stage it is not changed. The initial values are those of
/// a first launch.
///
/// A mode is the index of the choice in its menu, separators counted; an index without a choice
/// means what index 0 means, unless the reader says otherwise.
struct DataModelSnapshot {
    bool processFiles = true;
    bool processFolders = true;
    bool processSubFolders = false;
    OutputFormatIndexEnum outputFormat = OutputFormatIndexEnum::CSV;
    int firstSortMode = 0;
    int secondSortMode = 2;
    bool quoteStrings = true;
    int includeColumnTitlesMode = 0;
    int boolValuesMode = 0;
    int nullValuesMode = 0;
    int dateFormatMode = 0;
    int multiLineMode = 0;
    int linebreaksMode = 0;
    int encodingMode = 0;
    int htmlIndentationMode = 1;
    int htmlColumnIdHeaderMode = 0;
    int htmlColumnClassMode = 0;
    int jsonIndentationMode = 1;
    int jsonDateFormatMode = 1;
    platform::TextList sourceList;  ///< absolute paths, cleaned by platform::absolutePath
    platform::TextList columnList = {"name", "absolute_path"};

    /// The encoding that encodingMode stands for.
    TextEncoding currentFileEncoding() const;
};

}  // namespace marquell::pipeline
