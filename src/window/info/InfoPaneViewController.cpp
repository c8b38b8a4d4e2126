// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/info/InfoPaneViewController.h"

#include <QMimeData>
#include <utility>

#include "lists/tables/RowSets.h"
#include "metadata/TagManager.h"
#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/look/ColorRole.h"
#include "window/Text.h"
#include "window/info/InfoPaneColumnTableCellView.h"
#include "window/info/InfoPanePreviewTableCellView.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double nameColumnWidth = 240;
constexpr double frameWidth = 1;

/// The titles of the categories, whose number is then that of their segment.
QStringList withoutSeparators(const std::vector<std::string>& titles) {
    QStringList left;
    for (const std::string& title : titles) {
        if (title != "-") left << QString::fromStdString(title);
    }
    return left;
}

}  // namespace

InfoPaneViewController::InfoPaneViewController(pipeline::DataModel& dataModel)
    : dataModel_(dataModel) {}

InfoPaneViewController::~InfoPaneViewController() {
    delete tableView_;  // which asks this for its cells
}

void InfoPaneViewController::build() {
    setView(new Wall);
    SegmentedControlBrick* const segments = createSegments();
    place(segments, createTable());
    dataModel_.infoPaneCategory->addHotListener(
        [this, weak = std::weak_ptr(alive_), control = QPointer(segments)](int category) {
            if (weak.expired()) return;
            if (control != nullptr) control->selectSegment(category);
            if (tableView_ != nullptr) showCategory(category);
        });
}

SegmentedControlBrick* InfoPaneViewController::createSegments() {
    const auto& tags = metadata::TagManager::shared();
    auto* segments = new SegmentedControlBrick(withoutSeparators(tags.localizedBriefTagCategories));
    int segment = 0;
    for (const QString& title : withoutSeparators(tags.localizedTagCategories)) {
        segments->setSegmentToolTip(title, segment++);
    }
    segments->setSegmentStyle(SegmentStyle::smallSquare);
    segments->mini();
    segments->setAccessibleName(localizedText("Category", "accessible name"));
    segments->selectionChangedFunction = [this](int selected) {
        dataModel_.infoPaneCategory->setValue(selected);
    };
    setContentCompressionResistancePriority(segments, Qt::Horizontal, LayoutPriority::low);
    setContentHuggingPriority(segments, Qt::Horizontal, LayoutPriority::high);
    return segments;
}

/// The table in its frame.
Wall* InfoPaneViewController::createTable() {
    auto* frame = new Wall;
    frame->backgroundDrawingFunc = [frame](QPainter& painter, const QRectF& box) {
        painter.fillRect(box, color(ColorRole::divider, frame));
    };
    tableView_ = new CellTable(*this);
    tableView_->setAccessibleName(localizedText("Info Pane", "accessible name"));
    tableView_->setColumns({{"tag", QString(), nameColumnWidth}, {"value", QString()}}, false);
    frame->factory().internalAddBrick(
        tableView_, [](LayoutConstraintMaker& make) { make.fillContainer(frameWidth); });
    return frame;
}

/// The segments stand on the frame: their last line lies on its first.
void InfoPaneViewController::place(SegmentedControlBrick* segments, Wall* frame) {
    BricksFactory& factory = view()->factory();
    factory.internalAddBrick(segments, [&](LayoutConstraintMaker& make) {
        make.container().place(left, left).place(top, top);
        make.constraints.push_back(std::make_shared<LayoutConstraint>(
            segments, right, Relation::lessThanOrEqual, view(), right, 1, factory.insetFor(right)));
    });
    factory.internalAddBrick(frame, [segments](LayoutConstraintMaker& make) {
        make.andView(segments).pin(left, left, 0).pin(top, bottom, -1);
        make.container().place(right, right).pin(bottom, bottom, 0);
    });
    segments->raise();
}

void InfoPaneViewController::showCategory(int category) {
    tableView_->selectRows({});
    columnIds_ = metadata::TagManager::shared().columns(category);
    tableView_->reloadData();
    tableView_->scrollToTop();
}

void InfoPaneViewController::setCurrentNode(std::shared_ptr<pipeline::Node> node) {
    currentNode_ = std::move(node);
    if (tableView_ != nullptr) tableView_->reloadData();
}

std::shared_ptr<TableCellView> InfoPaneViewController::viewFor(const TableColumn& column, int row) {
    const std::string_view id = columnIds_[static_cast<std::size_t>(row)];
    if (column.identifier == "tag") return std::make_shared<InfoPaneColumnTableCellView>(id);
    auto cell = std::make_shared<InfoPanePreviewTableCellView>();
    cell->node = currentNode_;
    cell->valueKey = id;
    cell->configureLabel();
    return cell;
}

std::vector<TableCommand> InfoPaneViewController::commands() {
    const bool isAny = tableView_->selectedRow() >= 0;
    const bool isValue = isAny && currentNode_ != nullptr;
    return {
        {localizedText("Copy Value", "menu item"), QKeySequence(QKeySequence::Copy), isValue,
         [this] { copySelected(false); }},
        {localizedText("Copy Name and Value", "menu item"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), isValue, [this] { copySelected(true); }},
        {localizedText("Add to Columns", "menu item"), QKeySequence(), isAny,
         [this] { addSelectedToColumns(); }}};
}

void InfoPaneViewController::copySelected(bool withTitles) {
    copy_.copyValues(currentNode_, selectedIds(), withTitles);
}

void InfoPaneViewController::addSelectedToColumns() {
    lists::ColumnListData& columns = dataModel_.columnList;
    columns.insertAtRow(columns.value().size(), selectedIds());
}

std::unique_ptr<QMimeData> InfoPaneViewController::writeRows(const std::vector<RowRange>& rows) {
    draggedIndices_ = lists::indexSetOf(rows);
    const std::vector<std::string> ids = obtainDraggedColumnIds();
    if (ids.empty()) return nullptr;
    auto data = std::make_unique<QMimeData>();
    data->setData(QLatin1String(lists::ColumnListData::externalPasteboardType),
                  QByteArray::fromStdString(ids.front()));
    return data;
}

std::vector<std::string> InfoPaneViewController::obtainDraggedColumnIds() const {
    return draggedIndices_ ? idsOf(*draggedIndices_) : std::vector<std::string>();
}

std::vector<std::string> InfoPaneViewController::selectedIds() const {
    return idsOf(lists::indexSetOf(tableView_->selectedRows()));
}

std::vector<std::string> InfoPaneViewController::idsOf(const lists::IndexSet& rows) const {
    std::vector<std::string> ids;
    for (const std::size_t row : rows) {
        // The category may have changed since.
        if (row < columnIds_.size()) ids.emplace_back(columnIds_[row]);
    }
    return ids;
}

}  // namespace marquell::window
