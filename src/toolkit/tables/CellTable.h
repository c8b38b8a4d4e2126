// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeySequence>
#include <QMimeData>
#include <QTableView>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/tables/TableCellView.h"

namespace marquell::toolkit {

class CellDelegate;
class CellStore;
class CellTableModel;
class ColumnFitting;
class RowButtons;
class RowDrops;

struct TableColumn {
    std::string identifier;
    QString title;
    /// Points. 0 for one that takes its share of the room that there is.
    double width = 0;
};

/// Rows from `first` to `last`, both included.
struct RowRange {
    int first;
    int last;
};

/// What is dragged over a table.
struct TableDrag {
    const QMimeData& data;
    const QObject* source;  ///< the view of this program that it comes from; null from elsewhere
};

/// What can be done with the selected rows of a table, by key and in its context menu.
struct TableCommand {
    QString title;
    QKeySequence key;  // empty for none
    bool isEnabled;
    std::function<void()> run;
};

/// Asks a CellTable's owner for what the table shows, and tells it what the user does there. Rows
/// and columns count from 0.
class CellTableSource {
public:
    virtual ~CellTableSource() = default;

    virtual int numberOfRows() const = 0;

    /// Makes the cell, which the table keeps while it is in view or near it.
    virtual std::shared_ptr<TableCellView> viewFor(const TableColumn& column, int row) = 0;

    /// A line in place of a row: it can't be selected, and its cells show no text.
    virtual bool isSeparator(int /*row*/) const { return false; }

    virtual void selectionDidChange() {}

    /// In the order of the menu, where an item that selects all rows follows.
    virtual std::vector<TableCommand> commands() { return {}; }

    /// The row that begins with what the user has typed, the first one from `from` on and round to
    /// it again; -1 for none.
    virtual int rowForTyped(const QString& /*typed*/, int /*from*/) const { return -1; }

    /// The user has dragged a header: the columns in their new order, each by its number in the
    /// order that was set. Called when the drag has ended.
    virtual void columnsWereMoved(const std::vector<int>& /*columns*/) {}

    /// What to hand over when rows are dragged out; null if they can't be.
    virtual std::unique_ptr<QMimeData> writeRows(const std::vector<RowRange>& /*rows*/) {
        return nullptr;
    }
    /// Whether a drag may be dropped in the gap before `row`, which may be exchanged for another
    /// gap: Qt::IgnoreAction if it may not.
    virtual Qt::DropAction validateDrop(const TableDrag& /*drag*/, int& /*row*/) {
        return Qt::IgnoreAction;
    }
    virtual bool acceptDrop(const TableDrag& /*drag*/, int /*row*/) { return false; }
};

/// The one table of the program: rows of cells that it asks its source for as they come into view,
/// keeps while they are there, and lets go when they are more than a page away. So its size in
/// memory doesn't depend on the number of rows. Any number of rows may be selected. A drop is
/// always proposed for the gap nearest to the pointer, shown as a line.
///
/// Columns with headers can be dragged to other places and widths, and begin as wide as what they
/// show asks for. A row's button takes part in the keyboard: the arrow keys go from the row to it
/// and back.
class CellTable : public QTableView {
public:
    /// The source has to outlive the table.
    explicit CellTable(CellTableSource& source, QWidget* parent = nullptr);
    ~CellTable() override;

    /// One column over the whole width and no header, until columns are set with headers.
    void setColumns(std::vector<TableColumn> columns, bool withHeader);
    const std::vector<TableColumn>& columns() const { return columns_; }

    /// Takes other columns and asks the source for everything anew. `place` may select rows and
    /// scroll; what it leaves alone stays as after reloadData().
    void reload(std::vector<TableColumn> columns, bool withHeader,
                const std::function<void()>& place);

    /// Room before the text of a cell, in points; 6 at first.
    void setTextInset(double textInset);

    /// Asks the source for everything anew. Selected rows, the current one and the place in view
    /// stay as far as there are such rows.
    void reloadData();

    std::vector<RowRange> selectedRows() const;
    void selectRows(const std::vector<RowRange>& rows);
    /// The first selected row; -1 for none.
    int selectedRow() const;

    /// The height of all rows, and of the header if there is one, in px.
    int contentHeight() const;

    /// Shows where a drop that is dealt with elsewhere would go, as a line; -1 for nowhere.
    void showDropGap(int row);

    /// The rows in view; the last one is before the first if there are none.
    RowRange rowsInView() const;
    /// Whether a part of the column is in view.
    bool columnIsInView(int column) const;

    // For the buttons of rows.

    /// Makes the row the current one and gives the keyboard to its button, or to the table if it
    /// has none. Does nothing where there is no such row.
    void focusButtonOf(int row);
    /// Has the tabulator go on to what comes behind the table.
    bool leaveForwards() { return focusNextPrevChild(true); }

    void selectAll() override;
    void keyboardSearch(const QString& typed) override;
    int sizeHintForColumn(int column) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void setUpLook();
    void resetModel(const std::function<void()>& change, const std::function<void()>& place = {});
    void replaceColumns(std::vector<TableColumn> columns, bool withHeader, int rowCount);
    void contentMoved();
    void showCellsInView();
    void cellChanged(int row, int column);
    void columnMoved(int column, int from, int to);
    void tellOfMovedColumns();
    void applyMetrics();
    void showCellToolTip(const QHelpEvent& event) const;
    bool runCommand(const QKeyEvent& event);
    void goToRow(int row);
    int rowBeyondSeparators(int row, int step) const;
    QRegion selectedRegion() const;
    QRect rowRect(int row) const;

    CellTableSource& source_;
    std::vector<TableColumn> columns_;
    bool hasHeader_ = false;
    bool isResetting_ = false;
    bool wereColumnsMoved_ = false;
    bool areColumnsHeld_ = false;  // by the pointer, at a header, since these are the columns
    int dropGap_ = -1;
    QString typed_;
    QElapsedTimer sinceTyped_;
    const std::unique_ptr<CellStore> cells_;
    CellTableModel* const model_;   // owned as a child
    CellDelegate* const delegate_;  // owned as a child
    QWidget* headerCorner_ = nullptr;
    const std::unique_ptr<ColumnFitting> fitting_;
    const std::unique_ptr<RowButtons> buttons_;
    const std::unique_ptr<RowDrops> drops_;
};

}  // namespace marquell::toolkit
