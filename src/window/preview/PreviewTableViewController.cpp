// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/PreviewTableViewController.h"

#include <utility>
#include <vector>

#include "metadata/TagManager.h"
#include "window/Text.h"
#include "window/preview/PreviewTableCellView.h"
#include "window/preview/PreviewTablePlace.h"

namespace marquell::window {

PreviewTableViewController::PreviewTableViewController(pipeline::DataModel& dataModel)
    : dataModel_(dataModel),
      sourceListResponder_(dataModel.sourceList.storageKey, dataModel.defaults, false,
                           [this](auto&, const auto&) { updateSentence(); }) {}

PreviewTableViewController::~PreviewTableViewController() {
    delete sentence_;   // which looks at the table
    delete tableView_;  // which asks this for its cells
}

void PreviewTableViewController::build() {
    auto* const wall = new toolkit::Wall;
    const auto fill = [](toolkit::LayoutConstraintMaker& make) { make.fillContainer(); };
    tableView_ = new toolkit::CellTable(*this);
    tableView_->setAccessibleName(localizedText("Preview Table", "segmented control title"));
    wall->factory().internalAddBrick(tableView_, fill);
    sentence_ = new EmptyListSentence(*tableView_);
    wall->factory().internalAddBrick(sentence_, fill);
    setView(wall);
    updateColumns();
    updateSentence();
}

void PreviewTableViewController::updateAll(std::shared_ptr<const pipeline::FlatFileList> nodes) {
    const PreviewTablePlace place(*tableView_, source_);
    isUpdating_ = true;
    // This may show the table, whose cells are those of the list before until it is reloaded.
    dataModel_.waitingForData->setValue(false);
    take(std::move(nodes));
    tableView_->reload(columns(), true, [&] { place.restore(*tableView_, source_); });
    updateSentence();
    isUpdating_ = false;
    tellCurrentNode();
}

void PreviewTableViewController::take(std::shared_ptr<const pipeline::FlatFileList> nodes) {
    // The same list may come again for the sake of its columns, while a scan is under way.
    if (nodes == source_.nodes) return;
    source_.nodes = std::move(nodes);
    listIsOfSources_ = !dataModel_.sourceList.value().empty();
}

std::vector<toolkit::TableColumn> PreviewTableViewController::columns() const {
    std::vector<toolkit::TableColumn> columns;
    for (const std::string& id : dataModel_.columnList.value()) {
        const auto title = metadata::TagManager::shared().displayName(id);
        columns.push_back(
            {id, QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()))});
    }
    return columns;
}

void PreviewTableViewController::updateColumns() { tableView_->setColumns(columns(), true); }

std::vector<toolkit::TableCommand> PreviewTableViewController::commands() {
    // Another list may have come since the menu was opened.
    const auto copy = [this] {
        std::vector<std::string> ids;
        for (const auto& column : tableView_->columns()) ids.push_back(column.identifier);
        copy_.copyRows(source_.nodes, tableView_->selectedRows(), std::move(ids));
    };
    return {{localizedText("Copy", "menu item"), QKeySequence::Copy,
             tableView_->selectedRow() >= 0 && !tableView_->columns().empty(), copy}};
}

void PreviewTableViewController::columnsWereMoved(const std::vector<int>& columns) {
    const auto& shown = tableView_->columns();
    std::vector<std::string> ids;
    for (const int column : columns) {
        ids.push_back(shown.at(static_cast<std::size_t>(column)).identifier);
    }
    dataModel_.defaults->setObject(platform::TextList(std::move(ids)),
                                   dataModel_.columnList.storageKey);
}

std::shared_ptr<toolkit::TableCellView> PreviewTableViewController::viewFor(
    const toolkit::TableColumn& column, int row) {
    auto cell = std::make_shared<PreviewTableCellView>();
    cell->node = source_.node(row);
    cell->valueKey = column.identifier;
    cell->configureLabel();
    return cell;
}

void PreviewTableViewController::selectionDidChange() {
    if (!isUpdating_) tellCurrentNode();
}

void PreviewTableViewController::tellCurrentNode() {
    auto node = source_.node(tableView_->selectedRow());
    if (node == currentNode_) return;
    currentNode_ = std::move(node);
    if (selectionChanged) selectionChanged(currentNode_);
}

QString PreviewTableViewController::sentence() const {
    if (source_.numberOfRows() > 0) return {};
    if (dataModel_.sourceList.value().empty()) {
        return localizedText("Drop folders or files here, or press “Add …”.", "label");
    }
    if (source_.nodes == nullptr || !listIsOfSources_) return localizedText("Waiting...", "label");
    return localizedText(
        "Nothing to list: the sources hold nothing that is ticked under “Process”.", "label");
}

void PreviewTableViewController::updateSentence() {
    if (sentence_ == nullptr) return;
    const QString text = sentence();
    sentence_->setText(text);
    sentence_->setVisible(!text.isEmpty());
}

}  // namespace marquell::window
