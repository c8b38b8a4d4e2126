// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellTable.h"

#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/tables/CellDelegate.h"
#include "toolkit/tables/CellStore.h"
#include "toolkit/tables/CellTableModel.h"
#include "toolkit/tables/ColumnFitting.h"
#include "toolkit/tables/HeaderCorner.h"
#include "toolkit/tables/RowButtons.h"
#include "toolkit/tables/RowDrops.h"
#include "toolkit/tables/RowSelection.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double smallestDraggedColumn = 24;
constexpr double dropLineHeight = 2;

constexpr int manyRows = 1000;

void setUpHeader(QHeaderView& header) {
    header.setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    header.setSectionResizeMode(QHeaderView::Interactive);
    header.setHighlightSections(false);
    header.setSectionsClickable(false);
    header.setResizeContentsPrecision(0);  // what is in view
    header.hide();
}

}  // namespace

CellTable::CellTable(CellTableSource& source, QWidget* parent)
    : QTableView(parent),
      source_(source),
      cells_(std::make_unique<CellStore>(
          source_, columns_, [this](int row, int column) { cellChanged(row, column); })),
      model_(new CellTableModel(source_, columns_, *cells_)),
      delegate_(new CellDelegate(*cells_, this)),
      fitting_(std::make_unique<ColumnFitting>(*horizontalHeader(), columns_,
                                               [this](int column) {
                                                   return std::max(
                                                       sizeHintForColumn(column),
                                                       horizontalHeader()->sectionSizeHint(column));
                                               })),
      buttons_(std::make_unique<RowButtons>(*this, *cells_)),
      drops_(std::make_unique<RowDrops>(*this, source_)) {
    model_->setParent(this);
    setModel(model_);
    // With that of the rows it would go through all of them at each painting.
    horizontalHeader()->setSelectionModel(new QItemSelectionModel(model_, this));
    setItemDelegate(delegate_);
    setUpHeader(*horizontalHeader());
    connect(horizontalHeader(), &QHeaderView::sectionMoved, this, &CellTable::columnMoved);
    horizontalHeader()->viewport()->installEventFilter(this);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    auto* corner = new HeaderCorner(*horizontalHeader(), this);
    addScrollBarWidget(corner, Qt::AlignTop);
    corner->hide();
    headerCorner_ = corner;
    setCornerWidget(new QWidget(this));  // nothing, in place of the style's box
    setUpLook();
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    viewport()->setAcceptDrops(true);
    applyMetrics();
    setColumns({TableColumn{"one", QString()}}, false);
}

CellTable::~CellTable() = default;

void CellTable::setUpLook() {
    setFrameShape(NoFrame);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);  // also beneath the scroll bars
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
}

void CellTable::setColumns(std::vector<TableColumn> columns, bool withHeader) {
    resetModel([&] { replaceColumns(std::move(columns), withHeader, model_->rowCount()); });
}

void CellTable::reload(std::vector<TableColumn> columns, bool withHeader,
                       const std::function<void()>& place) {
    resetModel([&] { replaceColumns(std::move(columns), withHeader, source_.numberOfRows()); },
               place);
}

void CellTable::replaceColumns(std::vector<TableColumn> columns, bool withHeader, int rowCount) {
    model_->beginColumnChange();
    columns_ = std::move(columns);
    model_->endColumnChange(rowCount);
    hasHeader_ = withHeader;
    horizontalHeader()->setVisible(withHeader);
    horizontalHeader()->setSectionsMovable(withHeader);
    headerCorner_->setVisible(withHeader);
    wereColumnsMoved_ = false;
    areColumnsHeld_ = false;
    fitting_->start(withHeader, viewport()->width());
}

/// Runs a change that resets the model, after which selection, current row and place are what they
/// were, or what `place` makes of them.
void CellTable::resetModel(const std::function<void()>& change,
                           const std::function<void()>& place) {
    const auto selected = selectedRows();
    const int current = currentIndex().row();
    const int down = verticalScrollBar()->value();
    const int across = horizontalScrollBar()->value();
    const bool scrollsToCurrent = hasAutoScroll();
    setAutoScroll(false);
    isResetting_ = true;
    cells_->clear();
    change();
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(down);
    horizontalScrollBar()->setValue(across);
    selectionModel()->setCurrentIndex(model_->index(current, 0), QItemSelectionModel::NoUpdate);
    selectRows(selected);
    if (place) place();
    isResetting_ = false;
    setAutoScroll(scrollsToCurrent);
    contentMoved();
}

void CellTable::setTextInset(double textInset) {
    delegate_->setTextInset(textInset);
    viewport()->update();
}

void CellTable::reloadData() {
    const int rows = source_.numberOfRows();
    // Qt adds and removes rows one after the other; of many it is quicker to take all anew.
    if (std::abs(rows - model_->rowCount()) > manyRows) {
        return resetModel([this, rows] { model_->resetRowCount(rows); });
    }
    const bool scrollsToCurrent = hasAutoScroll();
    setAutoScroll(false);  // to a row that is still there for the model, but not for the source
    cells_->clear();
    model_->setRowCount(rows);
    executeDelayedItemsLayout();
    setAutoScroll(scrollsToCurrent);
    contentMoved();
    viewport()->update();
}

std::vector<RowRange> CellTable::selectedRows() const {
    return rowRangesOf(selectionModel()->selection());
}

void CellTable::selectRows(const std::vector<RowRange>& rows) {
    const QItemSelection selection = selectionOf(rows, *model_);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (selection.isEmpty() || selection.contains(currentIndex())) return;
    selectionModel()->setCurrentIndex(model_->index(selection.first().top(), 0),
                                      QItemSelectionModel::NoUpdate);
}

int CellTable::selectedRow() const {
    const auto rows = selectedRows();
    return rows.empty() ? -1 : rows.front().first;
}

void CellTable::selectAll() { selectRows({{0, model_->rowCount() - 1}}); }

int CellTable::contentHeight() const {
    return verticalHeader()->length() + (hasHeader_ ? horizontalHeader()->sizeHint().height() : 0);
}

RowRange CellTable::rowsInView() const {
    const int first = rowAt(0);
    if (first < 0 || viewport()->height() <= 0) return {0, -1};
    const int last = rowAt(viewport()->height() - 1);
    return {first, last < 0 ? model_->rowCount() - 1 : last};
}

bool CellTable::columnIsInView(int column) const {
    const int left = columnViewportPosition(column);
    return left + columnWidth(column) > 0 && left < viewport()->width();
}

void CellTable::contentMoved() {
    if (isResetting_) return;
    const RowRange rows = rowsInView();
    const int page = rows.last - rows.first + 1;
    const int width = viewport()->width();
    cells_->keepOnly([&](int row, int column) {
        const int left = columnViewportPosition(column);
        return row >= rows.first - page && row <= rows.last + page &&
               left + columnWidth(column) > -width && left < 2 * width;
    });
    if (!isVisible()) return;
    showCellsInView();
    buttons_->place();
}

void CellTable::showCellsInView() {
    std::vector<int> columns;
    for (int column = 0; column < model_->columnCount(); ++column) {
        if (columnIsInView(column)) columns.push_back(column);
    }
    cells_->show(rowsInView(), columns);
    fitting_->cellsShown([this] { return cells_->isComplete(); });
}

void CellTable::cellChanged(int row, int column) {
    model_->tellChange(row, column);
    if (isVisible()) fitting_->cellsShown([this] { return cells_->isComplete(); });
}

int CellTable::sizeHintForColumn(int column) const {
    // Other cells would be made, and ask for their values; of a hidden table all there are.
    return isVisible() && columnIsInView(column) ? QTableView::sizeHintForColumn(column) : -1;
}

bool CellTable::eventFilter(QObject* watched, QEvent* event) {
    const bool isOfHeader = watched == horizontalHeader()->viewport();
    if (isOfHeader && event->type() == QEvent::MouseButtonPress) areColumnsHeld_ = true;
    return QTableView::eventFilter(watched, event);
}

void CellTable::columnMoved(int /*column*/, int from, int to) {
    if (areColumnsHeld_) return tellOfMovedColumns();
    // Others have come since this one was taken hold of.
    const QSignalBlocker blocker(horizontalHeader());
    horizontalHeader()->moveSection(to, from);
}

/// The header is still at it: to replace its columns has to wait.
void CellTable::tellOfMovedColumns() {
    if (std::exchange(wereColumnsMoved_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!std::exchange(wereColumnsMoved_, false)) return;
            std::vector<int> order;
            for (int i = 0; i < model_->columnCount(); ++i) {
                order.push_back(horizontalHeader()->logicalIndex(i));
            }
            if (!std::ranges::is_sorted(order)) source_.columnsWereMoved(order);
        },
        Qt::QueuedConnection);
}

void CellTable::applyMetrics() {
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(metrics().rowHeight());
    horizontalHeader()->setMinimumSectionSize(hasHeader_ ? metrics().px(smallestDraggedColumn) : 1);
}

QRect CellTable::rowRect(int row) const {
    return {0, rowViewportPosition(row), viewport()->width(), rowHeight(row)};
}

void CellTable::showDropGap(int row) {
    if (dropGap_ == row) return;
    dropGap_ = row;
    viewport()->update();
    if (row < 0) return;
    const int y = row * verticalHeader()->defaultSectionSize();
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(std::clamp(bar->value(), y - viewport()->height(), y));
}

void CellTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    const int current = currentIndex().row();
    if (hasFocus() && current >= 0) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rowRect(current);
        option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(currentIndex()));
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
    if (dropGap_ < 0) return;
    const int height = metrics().px(dropLineHeight);
    const int gap = dropGap_ * verticalHeader()->defaultSectionSize() - verticalOffset();
    const int y = std::clamp(gap - height / 2, 0, std::max(viewport()->height() - height, 0));
    painter.fillRect(0, y, viewport()->width(), height, color(ColorRole::selection, this));
}

void CellTable::resizeEvent(QResizeEvent* event) {
    fitting_->roomChanged(viewport()->width());
    QTableView::resizeEvent(event);
}

void CellTable::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    contentMoved();
}

void CellTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::StyleChange) applyMetrics();
}

void CellTable::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    contentMoved();
}

void CellTable::updateGeometries() {
    QTableView::updateGeometries();
    contentMoved();
}

void CellTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    buttons_->showSelection();
    // Taking the model makes a change of nothing, before the source has its table.
    if (!selected.isEmpty() || !deselected.isEmpty()) source_.selectionDidChange();
}

}  // namespace marquell::toolkit
