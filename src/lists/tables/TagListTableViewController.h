// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "lists/ColumnListData.h"
#include "lists/TagListData.h"
#include "lists/tables/ListTable.h"
#include "toolkit/walls/NiblessViewController.h"

namespace marquell::lists {

/// The framed table of all columns that the program knows, from which they are added to the column
/// list: one by the button of its row, several by a command.
class TagListTableViewController : public toolkit::NiblessViewController,
                                   public toolkit::CellTableSource {
public:
    /// The list has to outlive it.
    explicit TagListTableViewController(ColumnListData& columnList);
    /// Takes the table along, wherever its view has been put.
    ~TagListTableViewController() override;

    void build() override;

    toolkit::CellTable* tableView() const { return tableView_; }

    int numberOfRows() const override { return static_cast<int>(listData_.data.size()); }
    std::shared_ptr<toolkit::TableCellView> viewFor(const toolkit::TableColumn& column,
                                                    int row) override;
    bool isSeparator(int row) const override;
    std::vector<toolkit::TableCommand> commands() override;
    /// By the titles, in whatever case.
    int rowForTyped(const QString& typed, int from) const override;

private:
    const std::string& columnId(int row) const;
    QString title(int row) const;
    void addSelected();

    ColumnListData& columnList_;
    const TagListData listData_;
    QPointer<ListTable> tableView_;  // owned by the view
};

}  // namespace marquell::lists
