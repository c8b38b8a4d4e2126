// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TableCopy.h"

#include <atomic>
#include <utility>

namespace marquell::window {
namespace {

using pipeline::FlatFileList;
using pipeline::Node;
using platform::PasteboardType;
using toolkit::RowRange;

/// The number of the newest copy. One clipboard is shared by all tables.
std::atomic<std::uint64_t> newest = 0;

TableText::Nodes nodesOf(const FlatFileList& list, const std::vector<RowRange>& rows) {
    TableText::Nodes nodes;
    for (const RowRange& range : rows) {
        const auto begin = list.files.begin() + range.first;
        nodes.insert(nodes.end(), begin, begin + (range.last - range.first + 1));
    }
    return nodes;
}

}  // namespace

class TableCopy::Operation : public platform::Operation {
public:
    using Finished = std::function<void(const TableText::Text& text)>;

    Operation(TableText demand, Compose compose, std::uint64_t number, Finished finished)
        : demand_(std::move(demand)), compose_(std::move(compose)), finished_(std::move(finished)) {
        demand_.shouldStop = [this, number] { return isCancelled() || number != newest; };
    }

    void main() override {
        if (demand_.shouldStop()) return;
        if (const TableText::Text text = compose_(demand_)) finished_(text);
    }

private:
    TableText demand_;
    const Compose compose_;
    const Finished finished_;
};

TableCopy::TableCopy() = default;
TableCopy::~TableCopy() = default;

void TableCopy::copyRows(std::shared_ptr<const FlatFileList> list, std::vector<RowRange> rows,
                         std::vector<std::string> columnIds) {
    if (list == nullptr || rows.empty()) return;
    start(std::move(columnIds), [list = std::move(list), rows = std::move(rows)](const auto& text) {
        return text.ofNodes(nodesOf(*list, rows));
    });
}

void TableCopy::copyValues(std::shared_ptr<Node> node, std::vector<std::string> columnIds,
                           bool withTitles) {
    if (node == nullptr) return;
    start(std::move(columnIds), [node = std::move(node), withTitles](const auto& text) {
        return text.ofColumns(node, withTitles);
    });
}

void TableCopy::start(std::vector<std::string> columnIds, Compose compose) {
    if (columnIds.empty()) return;  // there is nothing to copy
    const std::uint64_t number = ++newest;
    const auto finishLater = [this, number](const TableText::Text& text) {
        QMetaObject::invokeMethod(
            &receiver_, [this, text, number] { finish(text, number); }, Qt::QueuedConnection);
    };
    const auto operation = std::make_shared<Operation>(
        TableText{std::move(columnIds), noValueText().toStdString(), {}}, std::move(compose),
        number, finishLater);
    if (!queue_.addOperation(operation)) operation->main();
}

void TableCopy::finish(const TableText::Text& text, std::uint64_t number) {
    if (number != newest) return;
    pasteboard_.clearContents();
    pasteboard_.declareTypes({PasteboardType::tabularText, PasteboardType::string});
    pasteboard_.setData(PasteboardType::tabularText, text);
    pasteboard_.setData(PasteboardType::string, text);
}

}  // namespace marquell::window
