// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/ListOutputOperation.h"

#include <utility>
#include <variant>

#include "metadata/RunAhead.h"
#include "pipeline/NodePrefetch.h"

namespace marquell::formats {
namespace {

using pipeline::Column;
using pipeline::Node;

std::vector<Column> columnsOf(const platform::TextList& ids) { return {ids.begin(), ids.end()}; }

/// A value's text by the item formatter.
struct CellText {
    MetadataItemFormatterType& formatter;

    std::string operator()(metadata::StringValue& text) const { return std::move(text); }
    std::string operator()(const metadata::DateValue& date) const {
        return formatter.formatDate(date);
    }
    std::string operator()(metadata::BoolValue value) const {
        return formatter.formatBoolValue(value);
    }
    std::string operator()(metadata::NSInteger value) const {
        return formatter.formatNumber(value);
    }
    std::string operator()(metadata::None) const { return formatter.formatNullValue(); }
};

}  // namespace

ListOutputOperation::ListOutputOperation(
    std::shared_ptr<const pipeline::DataModelSnapshot> dataModelSnapshot,
    pipeline::StageOwner& owner, std::shared_ptr<const pipeline::FlatFileList> flatFileList,
    std::unique_ptr<MetadataItemFormatterType> itemFormatter)
    : owner_(owner),
      snapshot_(std::move(dataModelSnapshot)),
      flatFileList_(std::move(flatFileList)),
      columns_(columnsOf(snapshot_->columnList)),
      itemFormatter_(std::move(itemFormatter)),
      cells_(columns_.size()),
      cellStorage_(columns_.size()) {}

void ListOutputOperation::main() {
    if (isCancelled()) return;
    appendStart(*text_);
    if (appendRows()) owner_.outputOperationFinished(*this);
}

/// False if the operation was given up on the way.
bool ListOutputOperation::appendRows() {
    metadata::RunAhead ahead(flatFileList_->files, columns_, [this] { return isSuperseded(); });
    for (std::size_t row = 0; row < flatFileList_->files.size(); ++row) {
        if (isAbandoned()) return false;
        pipeline::prefetchAhead(flatFileList_->files, row);
        if (!ahead.waitFor(row)) return false;
        readCells(*flatFileList_->files[row]);
        appendRow(*text_, cells_);
        rowsDone_.store(row + 1, std::memory_order_relaxed);
    }
    return true;
}

void ListOutputOperation::readCells(Node& node) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        cells_[i] = readCell(node, columns_[i], cellStorage_[i]);
    }
}

std::string_view ListOutputOperation::readCell(Node& node, const Column& column,
                                               std::string& storage) {
    if (column.origin == Column::Origin::path && node.isText()) {
        // The view into the node saves a copy for the columns that most lists consist of.
        if (const auto part = column.pathPart(node)) return *part;
    }
    metadata::WrappedMetaDataValue value = node.getWrappedValueSync(column);
    storage = std::visit(CellText{*itemFormatter_}, value);
    return storage;
}

}  // namespace marquell::formats
