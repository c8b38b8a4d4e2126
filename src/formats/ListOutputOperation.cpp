// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/ListOutputOperation.h"

#include <optional>
#include <utility>
#include <variant>

#include "metadata/RunAhead.h"
#include "pipeline/NodePrefetch.h"

namespace marquell::formats {
namespace {

using pipeline::Column;
using pipeline::Node;
using platform::TextBuffer;

std::vector<Column> columnsOf(const platform::TextList& ids) { return {ids.begin(), ids.end()}; }

/// Whether a column's values come from the store and nowhere else.
bool hasStoredValues(const Column& column) { return column.origin == Column::Origin::source; }

/// A value as a cell by the item formatter. The text is put into `storage`.
struct CellReader {
    MetadataItemFormatterType& formatter;
    std::string& storage;

    Cell operator()(metadata::StringValue& text) const {
        storage.swap(text);
        return {storage, CellKind::text};
    }
    Cell operator()(const metadata::DateValue& date) const {
        formatter.formatDate(cleared(), date);
        return {storage, CellKind::date};
    }
    Cell operator()(metadata::BoolValue value) const {
        formatter.formatBoolValue(cleared(), value);
        return {storage, value ? CellKind::isTrue : CellKind::isFalse};
    }
    Cell operator()(metadata::NSInteger value) const {
        formatter.formatNumber(cleared(), value);
        return {storage, CellKind::number};
    }
    Cell operator()(metadata::None) const {
        formatter.formatNullValue(cleared());
        return {storage, CellKind::missing};
    }

private:
    std::string& cleared() const {
        storage.clear();
        return storage;
    }
};

}  // namespace

ListOutputOperation::ListOutputOperation(SharedSnapshot dataModelSnapshot,
                                         pipeline::StageOwner& owner, SharedList flatFileList,
                                         std::unique_ptr<MetadataItemFormatterType> itemFormatter)
    : owner_(owner),
      snapshot_(std::move(dataModelSnapshot)),
      flatFileList_(std::move(flatFileList)),
      columns_(columnsOf(snapshot_->columnList)),
      itemFormatter_(std::move(itemFormatter)),
      cells_(columns_.size()),
      cellStorage_(columns_.size()) {
    for (const Column& column : columns_) {
        if (hasStoredValues(column)) storedIds_.push_back({column.key, *column.source});
    }
    storedValues_.resize(storedIds_.size());
}

void ListOutputOperation::main() {
    if (isCancelled()) return;
    const bool isWhole = appendAll(*text_, [](auto, auto) { return false; });
    if (isWhole) owner_.outputOperationFinished(*this);
}

/// Makes the text once more until it is long enough. Keeping all places for this rare question
/// would cost memory in each run.
TextPlace ListOutputOperation::placeOf(std::size_t offset) {
    TextPlace place;
    TextBuffer text;
    std::size_t passed = 0;
    appendAll(text, [&](std::optional<std::size_t> row, std::size_t column) {
        passed += text.size();
        text.clear();
        if (passed <= offset) return false;
        place = {row, row ? flatFileList_->files[*row].get() : nullptr, columns_[column].id};
        return true;
    });
    return place;
}

/// After each title and cell asks `isEnough(row, column)`, without a row for a title, whether to
/// stop there. False if it said so, or if the operation was given up on the way.
template <typename Watch>
bool ListOutputOperation::appendAll(TextBuffer& text, const Watch& isEnough) {
    appendStart(text);
    if (hasTitles() && !appendTitles(text, isEnough)) return false;
    metadata::RunAhead ahead(flatFileList_->files, columns_, [this] { return isSuperseded(); });
    const std::size_t count = flatFileList_->files.size();
    for (std::size_t row = 0; row < count; ++row) {
        if (isAbandoned()) return false;
        pipeline::prefetchAhead(flatFileList_->files, row);
        if (!ahead.waitFor(row)) return false;
        readCells(*flatFileList_->files[row]);
        if (!appendRow(text, row, isEnough)) return false;
        rowsDone_.store(row + 1, std::memory_order_relaxed);
    }
    appendEnd(text);
    return true;
}

template <typename Watch>
bool ListOutputOperation::appendTitles(TextBuffer& text, const Watch& isEnough) const {
    appendRowStart(text);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        appendTitle(text, column);
        if (isEnough(std::nullopt, column)) return false;
    }
    appendRowEnd(text, false);
    return true;
}

template <typename Watch>
bool ListOutputOperation::appendRow(TextBuffer& text, std::size_t row,
                                    const Watch& isEnough) const {
    appendRowStart(text);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        appendCell(text, column, cells_[column]);
        if (isEnough(row, column)) return false;
    }
    appendRowEnd(text, row + 1 == flatFileList_->files.size());
    return true;
}

void ListOutputOperation::readCells(Node& node) {
    const bool areStored = readStoredValues(node);
    auto stored = storedValues_.begin();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (areStored && hasStoredValues(columns_[i])) {
            cells_[i] = std::visit(CellReader{*itemFormatter_, cellStorage_[i]}, *stored++);
        } else {
            cells_[i] = readCell(node, columns_[i], cellStorage_[i]);
        }
    }
}

/// Reads all stored values of a row in one look-up. False if one has to be extracted first.
bool ListOutputOperation::readStoredValues(const Node& node) {
    return !storedIds_.empty() && metadata::MetadataStorage::shared().getValuesIfRetrieved(
                                      node.pathKey(), storedIds_, storedValues_);
}

Cell ListOutputOperation::readCell(Node& node, const Column& column, std::string& storage) {
    if (column.origin == Column::Origin::path && node.isText()) {
        // The view into the node saves a copy for the columns that most lists consist of.
        if (const auto part = column.pathPart(node)) return {*part, CellKind::text};
    }
    metadata::WrappedMetaDataValue value = node.getWrappedValueSync(column);
    return std::visit(CellReader{*itemFormatter_, storage}, value);
}

}  // namespace marquell::formats
