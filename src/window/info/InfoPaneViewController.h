// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lists/StoredListData.h"
#include "pipeline/DataModel.h"
#include "pipeline/Node.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/tables/CellTable.h"
#include "toolkit/walls/NiblessViewController.h"
#include "window/preview/TableCopy.h"

namespace marquell::window {

/// All that is known of one node: a segment for each category of columns, and below it a row for
/// each column of the category that is chosen. Rows are dragged out to become columns of the list.
class InfoPaneViewController : public toolkit::NiblessViewController,
                               private toolkit::CellTableSource {
public:
    /// The model has to outlive it.
    explicit InfoPaneViewController(pipeline::DataModel& dataModel);
    ~InfoPaneViewController() override;

    void build() override;

    /// The node on show, null for none. What is selected and in view stays.
    void setCurrentNode(std::shared_ptr<pipeline::Node> node);

    /// The columns of the rows that are dragged, in the order of the rows.
    std::vector<std::string> obtainDraggedColumnIds() const;

    toolkit::CellTable* tableView() const { return tableView_; }

private:
    toolkit::SegmentedControlBrick* createSegments();
    toolkit::Wall* createTable();
    void place(toolkit::SegmentedControlBrick* segments, toolkit::Wall* frame);
    void showCategory(int category);

    int numberOfRows() const override { return static_cast<int>(columnIds_.size()); }
    std::shared_ptr<toolkit::TableCellView> viewFor(const toolkit::TableColumn& column,
                                                    int row) override;
    std::vector<toolkit::TableCommand> commands() override;
    std::unique_ptr<QMimeData> writeRows(const std::vector<toolkit::RowRange>& rows) override;

    std::vector<std::string> idsOf(const lists::IndexSet& rows) const;
    std::vector<std::string> selectedIds() const;
    void copySelected(bool withTitles);
    void addSelectedToColumns();

    pipeline::DataModel& dataModel_;
    std::span<const std::string_view> columnIds_;  // of the category on show
    std::shared_ptr<pipeline::Node> currentNode_;
    std::optional<lists::IndexSet> draggedIndices_;
    TableCopy copy_;
    QPointer<toolkit::CellTable> tableView_;
    /// Tells listeners that this has gone.
    const std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace marquell::window
