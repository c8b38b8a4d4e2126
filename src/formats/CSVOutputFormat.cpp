// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/CSVOutputFormat.h"

#include <utility>

#include "formats/ColumnTitle.h"
#include "formats/ItemOutputFormatter.h"
#include "formats/LineBreaks.h"
#include "formats/ListOutputOperation.h"
#include "pipeline/TextHelpers.h"

namespace marquell::formats {
namespace {

constexpr char quote = '"';
constexpr char fieldSeparator = ',';

void appendWithQuotesDoubled(platform::TextBuffer& text, std::string_view field) {
    for (;;) {
        const std::size_t found = field.find(quote);
        text.append(field.substr(0, found));
        if (found == std::string_view::npos) return;
        text.append("\"\"");
        field.remove_prefix(found + 1);
    }
}

class CSVOutputOperation final : public ListOutputOperation {
public:
    CSVOutputOperation(const std::shared_ptr<const pipeline::DataModelSnapshot>& snapshot,
                       pipeline::StageOwner& owner,
                       std::shared_ptr<const pipeline::FlatFileList> flatFileList)
        : ListOutputOperation(snapshot, owner, std::move(flatFileList),
                              std::make_unique<CSVItemOutputFormatter>(*snapshot)) {}

private:
    void appendStart(platform::TextBuffer& text) override {
        const int mode = dataModelSnapshot().includeColumnTitlesMode;
        if (mode == 0) return;
        std::vector<std::string> titles;
        for (const pipeline::Column& column : columns()) {
            titles.push_back(columnTitle(column.id, mode));
        }
        appendRow(text, std::vector<std::string_view>(titles.begin(), titles.end()));
    }

    void appendRow(platform::TextBuffer& text, std::span<const std::string_view> cells) override {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (i > 0) text.append(fieldSeparator);
            appendField(text, cells[i]);
        }
        text.append(lineBreak(dataModelSnapshot().linebreaksMode));
    }

    void appendField(platform::TextBuffer& text, std::string_view field) const {
        if (dataModelSnapshot().quoteStrings) text.append(quote);
        if (dataModelSnapshot().multiLineMode == 1 && pipeline::hasLineBreakOrTab(field)) {
            appendWithQuotesDoubled(text, pipeline::withEncodedLineBreaksAndTabs(field));
        } else {
            appendWithQuotesDoubled(text, field);
        }
        if (dataModelSnapshot().quoteStrings) text.append(quote);
    }
};

}  // namespace

std::shared_ptr<OutputFormatOperationType> CSVOutputFormat::getOutputOperation(
    std::shared_ptr<const pipeline::DataModelSnapshot> dataModelSnapshot,
    pipeline::StageOwner& owner, std::shared_ptr<const pipeline::FlatFileList> flatFileList) const {
    return std::make_shared<CSVOutputOperation>(dataModelSnapshot, owner, std::move(flatFileList));
}

pipeline::TextEncoding CSVOutputFormat::fileEncoding(
    const pipeline::DataModelSnapshot& snapshot) const {
    return snapshot.currentFileEncoding();
}

}  // namespace marquell::formats
