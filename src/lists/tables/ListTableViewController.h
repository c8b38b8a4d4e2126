// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <optional>
#include <vector>

#include "lists/StoredListData.h"
#include "lists/tables/ListTable.h"
#include "lists/tables/RowActions.h"
#include "toolkit/layout/LayoutConstraint.h"
#include "toolkit/walls/NiblessViewController.h"
#include "variables/KVOResponder.h"

namespace marquell::lists {

/// A list of the settings as a framed table, which asks for the height of its rows. Rows can be
/// removed, and moved by key, by menu and by drag; every change of the list, from any side, is
/// shown at once.
class ListTableViewController : public toolkit::NiblessViewController,
                                public toolkit::CellTableSource {
public:
    /// Takes the table along, wherever its view has been put.
    ~ListTableViewController() override;

    void build() override;

    toolkit::CellTable* tableView() const { return tableView_; }

    int numberOfRows() const override;
    void selectionDidChange() override;
    std::unique_ptr<QMimeData> writeRows(const std::vector<toolkit::RowRange>& rows) override;
    /// Moves the dragged rows.
    bool acceptDrop(const toolkit::TableDrag& drag, int row) override;

protected:
    ListTableViewController(StoredListData& listData,
                            std::shared_ptr<platform::UserDefaults> defaults);

    /// Whether rows of this very table are dragged.
    bool isOwnDrag(const toolkit::TableDrag& drag) const;

    const std::string& textOf(int row) const;
    /// The other rows that are selected stay so. Without any the next row is, or the last one.
    void removeRow(int row);

private:
    void reload();
    void followContentHeight();
    void updateActions();
    void removeSelected();
    bool isButtonAtKeyboard() const;
    void moveSelected(bool up);
    void move(const IndexSet& rows, std::size_t toRow);

    StoredListData& listData_;
    const std::shared_ptr<platform::UserDefaults> defaults_;
    platform::TextList shown_;
    QPointer<ListTable> tableView_;  // owned by the view
    toolkit::LayoutConstraintPtr height_;
    std::optional<RowActions> actions_;
    std::optional<variables::KVOResponder> updateWhenDefaultsStorageKeyIsChanged_;
};

}  // namespace marquell::lists
