// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "formats/Cell.h"
#include "formats/MetadataItemFormatterType.h"
#include "formats/OutputFormatType.h"
#include "metadata/MetadataStorage.h"
#include "metadata/WrappedMetaDataValue.h"
#include "pipeline/Column.h"
#include "platform/Disposal.h"

namespace marquell::formats {

/// What the operations of all formats have in common: the walk through the list, reading the cells
/// of each row with extraction running ahead, counting, and telling the owner. Once begun it goes
/// on to the end of the list, so that a text is never cut short. But superseded it ends without a
/// word where a value is not stored yet: nobody is to wait for files that no list asks for any
/// more.
///
/// A format says what each piece of the text looks like. The pieces are, in this order:
///
///     start
///     row start, title of each column, row end     if there are titles
///     row start, cell of each column, row end      of each node
///     end
class ListOutputOperation : public OutputFormatOperationType {
public:
    void main() override;

    std::size_t currentFileCount() const override {
        return rowsDone_.load(std::memory_order_relaxed);
    }
    std::size_t totalFileCount() const override { return flatFileList_->files.size(); }
    pipeline::OutputOperationTypeEnum type() const override {
        return pipeline::OutputOperationTypeEnum::computingOutput;
    }
    bool indeterminateProgress() const override { return false; }
    std::shared_ptr<const platform::TextBuffer> outputString() const override { return text_; }
    const pipeline::DataModelSnapshot& dataModelSnapshot() const override { return *snapshot_; }
    TextPlace placeOf(std::size_t offset) override;

protected:
    ListOutputOperation(SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
                        SharedList flatFileList,
                        std::unique_ptr<MetadataItemFormatterType> itemFormatter);

    /// A format may prepare here what it needs for the rows.
    virtual void appendStart(platform::TextBuffer&) {}
    virtual bool hasTitles() const { return false; }
    virtual void appendTitle(platform::TextBuffer&, std::size_t /*column*/) const {}
    virtual void appendRowStart(platform::TextBuffer&) const {}
    virtual void appendCell(platform::TextBuffer& text, std::size_t column,
                            const Cell& cell) const = 0;
    virtual void appendRowEnd(platform::TextBuffer& text, bool isLast) const = 0;
    virtual void appendEnd(platform::TextBuffer&) const {}

    const std::vector<pipeline::Column>& columns() const { return columns_; }

private:
    template <typename Watch>
    bool appendAll(platform::TextBuffer& text, const Watch& isEnough);
    template <typename Watch>
    bool appendTitles(platform::TextBuffer& text, const Watch& isEnough) const;
    template <typename Watch>
    bool appendRow(platform::TextBuffer& text, std::size_t row, const Watch& isEnough) const;
    void readCells(pipeline::Node& node);
    bool readStoredValues(const pipeline::Node& node);
    Cell readCell(pipeline::Node& node, const pipeline::Column& column, std::string& storage);

    pipeline::StageOwner& owner_;
    const std::shared_ptr<const pipeline::DataModelSnapshot> snapshot_;
    const SharedList flatFileList_;
    const std::vector<pipeline::Column> columns_;
    std::unique_ptr<MetadataItemFormatterType> itemFormatter_;
    std::shared_ptr<platform::TextBuffer> text_ =
        platform::makeDisposedOnWorker<platform::TextBuffer>();
    std::atomic<std::size_t> rowsDone_ = 0;
    /// What the columns with a source are stored under, in their order, and the values of a row.
    std::vector<metadata::MetadataStorage::ValueId> storedIds_;
    std::vector<metadata::WrappedMetaDataValue> storedValues_;
    std::vector<Cell> cells_;
    std::vector<std::string> cellStorage_;
};

}  // namespace marquell::formats
