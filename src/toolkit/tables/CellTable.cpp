// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellTable.h"

#include <QDrag>
#include <QDragLeaveEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/tables/CellDelegate.h"
#include "toolkit/tables/CellStore.h"
#include "toolkit/tables/CellTableModel.h"
#include "toolkit/tables/CellText.h"
#include "toolkit/tables/ColumnWidths.h"
#include "toolkit/tables/HeaderCorner.h"
#include "toolkit/tables/RowButtons.h"
#include "toolkit/tables/RowDrops.h"
#include "toolkit/tables/RowSelection.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double smallestSharedColumn = 88;
constexpr double smallestDraggedColumn = 24;
constexpr double dropLineHeight = 2;

constexpr int manyRows = 1000;

void setUpHeader(QHeaderView& header) {
    header.setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    header.setSectionResizeMode(QHeaderView::Interactive);
    header.setHighlightSections(false);
    header.setSectionsClickable(false);
    header.hide();
}

}  // namespace

CellTable::CellTable(CellTableSource& source, QWidget* parent)
    : QTableView(parent),
      source_(source),
      cells_(std::make_unique<CellStore>(source_, columns_,
                                         [this](int row, int column) {
                                             viewport()->update(
                                                 visualRect(model_->index(row, column)));
                                         })),
      model_(new CellTableModel(columns_, *cells_)),
      delegate_(new CellDelegate(*cells_, this)),
      buttons_(std::make_unique<RowButtons>(*this, *cells_)),
      drops_(std::make_unique<RowDrops>(*this, source_)) {
    model_->setParent(this);
    setModel(model_);
    // With that of the rows it would go through all of them at each painting.
    horizontalHeader()->setSelectionModel(new QItemSelectionModel(model_, this));
    setItemDelegate(delegate_);
    setUpHeader(*horizontalHeader());
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    auto* corner = new HeaderCorner(*horizontalHeader(), this);
    addScrollBarWidget(corner, Qt::AlignTop);
    corner->hide();
    headerCorner_ = corner;
    setCornerWidget(new QWidget(this));  // nothing, in place of the style's box

    setFrameShape(NoFrame);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);  // also beneath the scroll bars
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setDragEnabled(true);
    viewport()->setAcceptDrops(true);
    applyMetrics();
    setColumns({TableColumn{"one", QString()}}, false);
}

CellTable::~CellTable() = default;

void CellTable::setColumns(std::vector<TableColumn> columns, bool withHeader) {
    resetModel([&] {
        model_->beginColumnChange();
        columns_ = std::move(columns);
        model_->endColumnChange();
        hasHeader_ = withHeader;
        horizontalHeader()->setVisible(withHeader);
        headerCorner_->setVisible(withHeader);
        fittedWidth_ = 0;
    });
}

/// Runs a change that resets the model, after which selection, current row and place are what they
/// were.
void CellTable::resetModel(const std::function<void()>& change) {
    const auto selected = selectedRows();
    const int current = currentIndex().row();
    const int place = verticalScrollBar()->value();
    const int across = horizontalScrollBar()->value();
    const bool scrollsToCurrent = hasAutoScroll();
    setAutoScroll(false);
    cells_->clear();
    change();
    resizeColumns();
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(place);
    horizontalScrollBar()->setValue(across);
    selectionModel()->setCurrentIndex(model_->index(current, 0), QItemSelectionModel::NoUpdate);
    selectRows(selected);
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
    const RowRange rows = rowsInView();
    const int page = rows.last - rows.first + 1;
    const int width = viewport()->width();
    cells_->keepOnly([&](int row, int column) {
        const int left = columnViewportPosition(column);
        return row >= rows.first - page && row <= rows.last + page &&
               left + columnWidth(column) > -width && left < 2 * width;
    });
    if (isVisible()) buttons_->place();
}

void CellTable::resizeColumns() {
    const int room = viewport()->width();
    QHeaderView& header = *horizontalHeader();
    const int count = header.count();
    if (room <= 0 || room == fittedWidth_) return;
    const int smallest = hasHeader_ ? metrics().px(smallestSharedColumn) : 0;
    std::vector<int> widths;
    for (int i = 0; i < count; ++i) widths.push_back(header.sectionSize(i));
    widths = hasHeader_ && fittedWidth_ > 0
                 ? widthsAfterResize(std::move(widths), fittedWidth_, room, smallest)
                 : equalWidths(count, room, smallest);
    fittedWidth_ = room;
    for (int i = 0; i < count; ++i) {
        header.resizeSection(i, widths.at(static_cast<std::size_t>(i)));
    }
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

void CellTable::focusButtonOf(int row) {
    if (row < 0 || row >= model_->rowCount()) return;
    const QModelIndex index = model_->index(row, std::max(currentIndex().column(), 0));
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
    if (!buttons_->setFocus(row)) setFocus(Qt::OtherFocusReason);
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
    resizeColumns();
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

QModelIndex CellTable::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
    // To the first row and the last, not to the ends of a row.
    if (cursorAction == MoveHome || cursorAction == MoveEnd) {
        const int row = cursorAction == MoveHome ? 0 : model_->rowCount() - 1;
        return model_->index(row, std::max(currentIndex().column(), 0));
    }
    return QTableView::moveCursor(cursorAction, modifiers);
}

void CellTable::keyPressEvent(QKeyEvent* event) {
    // Qt would copy what a single cell shows, be it cut.
    if (event->matches(QKeySequence::Copy)) return event->ignore();
    const int toButton = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (isPlain && event->key() == toButton) {
        // Rows may have come after the focus, and none of them been made the current one.
        const int row = currentIndex().isValid() ? currentIndex().row() : rowsInView().first;
        scrollTo(model_->index(row, std::max(currentIndex().column(), 0)));
        if (buttons_->setFocus(row)) return;
    }
    QTableView::keyPressEvent(event);
}

bool CellTable::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    showCellToolTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void CellTable::showCellToolTip(const QHelpEvent& event) const {
    const QModelIndex index = indexAt(event.pos());
    if (!index.isValid()) {
        QToolTip::hideText();
        return;
    }
    const QRect rect = visualRect(index);
    const auto cell = cells_->cell(index.row(), index.column());
    const int room = delegate_->textRect(rect, *cell, layoutDirection()).width();
    QToolTip::showText(event.globalPos(), toolTipOf(*cell, room), viewport(), rect);
}

void CellTable::dragEnterEvent(QDragEnterEvent* event) { drops_->follow(*event); }
void CellTable::dragMoveEvent(QDragMoveEvent* event) { drops_->follow(*event); }
void CellTable::dragLeaveEvent(QDragLeaveEvent* /*event*/) { drops_->end(); }
void CellTable::dropEvent(QDropEvent* event) { drops_->drop(*event); }

QRegion CellTable::selectedRegion() const {
    const RowRange inView = rowsInView();
    QRegion region;
    for (const RowRange& range : selectedRows()) {
        const int first = std::max(range.first, inView.first);
        const int last = std::min(range.last, inView.last);
        if (first <= last) region += rowRect(first).united(rowRect(last));
    }
    return region;
}

void CellTable::startDrag(Qt::DropActions /*supportedActions*/) {
    // Where there is nothing to drag, Qt goes on by selecting the rows that the pointer passes.
    auto rowData = source_.writeRows(selectedRows());
    if (rowData == nullptr) return;
    const QRegion rows = selectedRegion();
    const QRect bounds = rows.boundingRect();
    QPixmap picture(bounds.size() * devicePixelRatio());
    picture.setDevicePixelRatio(devicePixelRatio());
    picture.fill(Qt::transparent);
    viewport()->render(&picture, QPoint(), rows, DrawWindowBackground);
    auto* drag = new QDrag(this);  // goes when it has ended
    drag->setMimeData(rowData.release());
    drag->setPixmap(picture);
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - bounds.topLeft());
    drag->exec(Qt::MoveAction);
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
