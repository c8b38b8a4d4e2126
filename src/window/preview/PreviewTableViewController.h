// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "pipeline/DataModel.h"
#include "pipeline/FlatFileList.h"
#include "toolkit/tables/CellTable.h"
#include "toolkit/walls/NiblessViewController.h"
#include "variables/KVOResponder.h"
#include "window/preview/EmptyListSentence.h"
#include "window/preview/PreviewTableDataSource.h"
#include "window/preview/TableCopy.h"

namespace marquell::window {

/// The list as it will be written: a row for each node, a column for each entry of the column list.
/// While there are no rows it says why.
class PreviewTableViewController : public toolkit::NiblessViewController,
                                   private toolkit::CellTableSource {
public:
    /// The model has to outlive it.
    explicit PreviewTableViewController(pipeline::DataModel& dataModel);
    ~PreviewTableViewController() override;

    void build() override;

    /// Shows a list, null for none, in place of the one before, and ends the waiting for data.
    /// Selected rows and the place in view stay as far as the list still has them.
    void updateAll(std::shared_ptr<const pipeline::FlatFileList> nodes);

    /// Makes the columns anew from the column list.
    void updateColumns();

    toolkit::CellTable* tableView() const { return tableView_; }
    const PreviewTableDataSource& previewTableViewDataSource() const { return source_; }

    /// Told when another node than before is the first selected one; null for none.
    std::function<void(std::shared_ptr<pipeline::Node>)> selectionChanged;

private:
    int numberOfRows() const override { return source_.numberOfRows(); }
    std::shared_ptr<toolkit::TableCellView> viewFor(const toolkit::TableColumn& column,
                                                    int row) override;
    void selectionDidChange() override;
    std::vector<toolkit::TableCommand> commands() override;
    void columnsWereMoved(const std::vector<int>& columns) override;

    std::vector<toolkit::TableColumn> columns() const;
    void take(std::shared_ptr<const pipeline::FlatFileList> nodes);
    QString sentence() const;
    void updateSentence();
    void tellCurrentNode();

    pipeline::DataModel& dataModel_;
    PreviewTableDataSource source_;
    bool listIsOfSources_ = false;  // whether there were sources when the list came
    bool isUpdating_ = false;
    std::shared_ptr<pipeline::Node> currentNode_;
    TableCopy copy_;
    QPointer<toolkit::CellTable> tableView_;
    QPointer<EmptyListSentence> sentence_;
    const variables::KVOResponder sourceListResponder_;  // last: its function uses all the others
};

}  // namespace marquell::window
