// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "formats/OutputFormatType.h"

namespace marquell::formats {

/// Comma-separated values. A record is its fields with "," between them and a line break behind
/// the last record too; a field is, in this order:
///
///     multiLineMode 1   LF, CR and tab become \n, \r and \t; backslashes are not doubled
///     always            each " becomes ""
///     quoteStrings      a " on both sides, whatever the field holds; without it on none
///
/// A row of titles, encoded like any other, comes first unless includeColumnTitlesMode is 0.
class CSVOutputFormat final : public OutputFormatType {
public:
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        std::shared_ptr<const pipeline::DataModelSnapshot> dataModelSnapshot,
        pipeline::StageOwner& owner,
        std::shared_ptr<const pipeline::FlatFileList> flatFileList) const override;
    pipeline::TextEncoding fileEncoding(const pipeline::DataModelSnapshot& snapshot) const override;
};

}  // namespace marquell::formats
