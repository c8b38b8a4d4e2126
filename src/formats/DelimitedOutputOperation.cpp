// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/DelimitedOutputOperation.h"

#include <utility>

#include "formats/ColumnTitle.h"
#include "formats/ItemOutputFormatter.h"
#include "formats/LineBreaks.h"
#include "pipeline/TextHelpers.h"

namespace marquell::formats {
namespace {

constexpr char quote = '"';
constexpr platform::Escapes::Row doubledQuote = {quote, "\"\""};
constexpr platform::Escapes singleLine = pipeline::lineBreakAndTabEscapes.with({doubledQuote});

}  // namespace

constexpr platform::Escapes DelimitedOutputOperation::doubledQuotes = {doubledQuote};

RecordLayout DelimitedOutputOperation::layoutBySettings(
    char fieldSeparator, const pipeline::DataModelSnapshot& snapshot) {
    return {fieldSeparator, snapshot.quoteStrings,
            snapshot.multiLineMode == 1 ? singleLine : doubledQuotes,
            lineBreak(snapshot.linebreaksMode)};
}

DelimitedOutputOperation::DelimitedOutputOperation(const SharedSnapshot& dataModelSnapshot,
                                                   pipeline::StageOwner& owner,
                                                   SharedList flatFileList,
                                                   const RecordLayout& layout)
    : ListOutputOperation(dataModelSnapshot, owner, std::move(flatFileList),
                          std::make_unique<ItemOutputFormatter>(*dataModelSnapshot)),
      layout_(layout) {}

bool DelimitedOutputOperation::hasTitles() const {
    return dataModelSnapshot().includeColumnTitlesMode != 0;
}

void DelimitedOutputOperation::appendTitle(platform::TextBuffer& text, std::size_t column) const {
    appendField(text, column,
                columnTitle(columns()[column].id, dataModelSnapshot().includeColumnTitlesMode));
}

void DelimitedOutputOperation::appendCell(platform::TextBuffer& text, std::size_t column,
                                          const Cell& cell) const {
    appendField(text, column, cell.text);
}

void DelimitedOutputOperation::appendField(platform::TextBuffer& text, std::size_t column,
                                           std::string_view field) const {
    if (column > 0) text.append(layout_.fieldSeparator);
    if (layout_.quotesFields) text.append(quote);
    layout_.escapes.append(text, field);
    if (layout_.quotesFields) text.append(quote);
}

void DelimitedOutputOperation::appendRowEnd(platform::TextBuffer& text, bool) const {
    text.append(layout_.recordTerminator);
}

}  // namespace marquell::formats
