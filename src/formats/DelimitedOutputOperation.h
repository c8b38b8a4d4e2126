// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string_view>

#include "formats/ListOutputOperation.h"
#include "platform/Escapes.h"

namespace marquell::formats {

/// How a format of records writes its fields, in the order of the bytes.
struct RecordLayout {
    char fieldSeparator;                ///< between fields only
    bool quotesFields;                  ///< whether a " stands on both sides, whatever is between
    const platform::Escapes& escapes;   ///< of titles and cells
    std::string_view recordTerminator;  ///< behind every record, the last one too
};

/// Records of fields: a record of titles unless includeColumnTitlesMode is 0, and one for each
/// node. Numbers, dates and missing values are fields like any other.
class DelimitedOutputOperation : public ListOutputOperation {
protected:
    DelimitedOutputOperation(const SharedSnapshot& dataModelSnapshot, pipeline::StageOwner& owner,
                             SharedList flatFileList, const RecordLayout& layout);

    /// The layout of the formats that follow the settings for it:
    ///
    ///     multiLineMode 1   LF, CR and tab become \n, \r and \t; backslashes are not doubled
    ///     always            each " becomes ""
    ///     quoteStrings      quotes around all fields; without it around none
    ///     linebreaksMode    the terminator
    static RecordLayout layoutBySettings(char fieldSeparator,
                                         const pipeline::DataModelSnapshot& snapshot);

    static const platform::Escapes doubledQuotes;

private:
    bool hasTitles() const override;
    void appendTitle(platform::TextBuffer& text, std::size_t column) const override;
    void appendCell(platform::TextBuffer& text, std::size_t column,
                    const Cell& cell) const override;
    void appendRowEnd(platform::TextBuffer& text, bool isLast) const override;
    void appendField(platform::TextBuffer& text, std::size_t column, std::string_view field) const;

    const RecordLayout layout_;
};

}  // namespace marquell::formats
