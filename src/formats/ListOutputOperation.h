// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/MetadataItemFormatterType.h"
#include "formats/OutputFormatType.h"
#include "pipeline/Column.h"
#include "platform/Disposal.h"

namespace marquell::formats {

/// What the operations of all formats have in common: the walk through the list, reading the cells
/// of each row with extraction running ahead, counting, and telling the owner. Once begun it goes
/// on to the end of the list, so that a text is never cut short. But superseded it ends without a
/// word where a value is not stored yet: nobody is to wait for files that no list asks for any
/// more.
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

protected:
    ListOutputOperation(std::shared_ptr<const pipeline::DataModelSnapshot> dataModelSnapshot,
                        pipeline::StageOwner& owner,
                        std::shared_ptr<const pipeline::FlatFileList> flatFileList,
                        std::unique_ptr<MetadataItemFormatterType> itemFormatter);

    /// Appends what comes before the first row.
    virtual void appendStart(platform::TextBuffer& text) = 0;
    /// Appends a row. The cells are valid UTF-8, in the order of the columns, and good until the
    /// call returns.
    virtual void appendRow(platform::TextBuffer& text, std::span<const std::string_view> cells) = 0;

    const std::vector<pipeline::Column>& columns() const { return columns_; }

private:
    bool appendRows();
    void readCells(pipeline::Node& node);
    std::string_view readCell(pipeline::Node& node, const pipeline::Column& column,
                              std::string& storage);

    pipeline::StageOwner& owner_;
    const std::shared_ptr<const pipeline::DataModelSnapshot> snapshot_;
    const std::shared_ptr<const pipeline::FlatFileList> flatFileList_;
    const std::vector<pipeline::Column> columns_;
    std::unique_ptr<MetadataItemFormatterType> itemFormatter_;
    std::shared_ptr<platform::TextBuffer> text_ =
        platform::makeDisposedOnWorker<platform::TextBuffer>();
    std::atomic<std::size_t> rowsDone_ = 0;
    std::vector<std::string_view> cells_;
    std::vector<std::string> cellStorage_;
};

}  // namespace marquell::formats
