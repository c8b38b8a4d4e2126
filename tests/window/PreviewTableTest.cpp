// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "metadata/DataCoordinator.h"
#include "metadata/MetadataStorage.h"
#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "shell/EventLoop.h"
#include "support/GatedExtraction.h"
#include "support/NodeAt.h"
#include "toolkit/layout/LayoutRoot.h"
#include "window/preview/PreviewTableCellView.h"
#include "window/preview/PreviewTableViewController.h"

namespace marquell::window {
namespace {

using tests::nodeAt;

using metadata::DataCoordinator;
using metadata::MetadataSource;
using pipeline::FlatFileList;
using pipeline::Node;
using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::ColorRole;
using toolkit::RowRange;
using State = PreviewTableCellView::State;

std::shared_ptr<const FlatFileList> listOf(const std::vector<std::string>& paths) {
    auto list = std::make_shared<FlatFileList>();
    for (const std::string& path : paths) list->files.push_back(nodeAt(path));
    return list;
}

std::vector<std::string> numbered(int first, int last) {
    std::vector<std::string> paths;
    for (int i = first; i <= last; ++i) paths.push_back("/missing/" + std::to_string(i));
    return paths;
}

class PreviewTableTest : public testing::Test {
protected:
    PreviewTableTest() {
        metadata::MetadataStorage::shared().clear();
        platform::MainQueue::install(&mainQueue);
        setColumns({"name", "size"});
        controller = toolkit::makeController<PreviewTableViewController>(model);
        toolkit::LayoutRoot::install(controller->view());
        controller->view()->resize(400, 270);
        controller->view()->show();
    }
    ~PreviewTableTest() override {
        controller.reset();
        const auto last = nodeAt(folder.path());
        const auto cell = cellOf(last, "size");
        settleUntil([&] { return cell->state != State::waiting; });
        platform::MainQueue::install(nullptr);
        metadata::MetadataStorage::shared().clear();
    }

    void setColumns(const std::vector<std::string>& ids) {
        defaults->setObject(platform::TextList(ids), model.columnList.storageKey);
    }
    void setSources(const std::vector<std::string>& paths) {
        defaults->setObject(platform::TextList(paths), model.sourceList.storageKey);
    }

    /// Until all events are dealt with and `condition` holds.
    void settleUntil(const std::function<bool()>& condition) {
        EXPECT_TRUE(tests::waitUntil([&] { return mainQueue.drain() == 0 && condition(); }));
    }

    /// Keeps the extraction busy, so that requests wait.
    void closeGate() {
        DataCoordinator::shared().retrieveDataAsynchronously(nodeAt("/gate"),
                                                             MetadataSource::basic);
        extraction.gateReached.wait();
    }

    static std::shared_ptr<PreviewTableCellView> cellOf(const std::shared_ptr<Node>& node,
                                                        const std::string& column) {
        auto cell = std::make_shared<PreviewTableCellView>();
        cell->node = node;
        cell->valueKey = column;
        cell->configureLabel();
        return cell;
    }

    toolkit::CellTable& table() const { return *controller->tableView(); }
    QString textAt(int row, int column) const {
        return table().model()->index(row, column).data().toString();
    }
    QString sentence() const {
        const auto* label = controller->view()->findChild<QLabel*>();
        return label->isVisible() ? label->text() : QString();
    }
    std::vector<int> selectedRows() const {
        std::vector<int> rows;
        for (const RowRange& range : table().selectedRows()) {
            for (int row = range.first; row <= range.last; ++row) rows.push_back(row);
        }
        return rows;
    }
    std::set<std::string> extracted() {
        const auto paths = extraction.extracted();
        return {paths.begin(), paths.end()};
    }

    platform::PumpedMainQueue mainQueue;
    tests::TemporaryFolder folder;
    tests::GatedExtraction extraction;
    std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::open(
        folder / "settings.json", [](const std::string& problem) { FAIL() << problem; });
    pipeline::DataModel model{defaults};
    std::unique_ptr<PreviewTableViewController> controller;
};

TEST_F(PreviewTableTest, AValueThatArrivesReplacesThePlaceholder) {
    tests::writeFile(folder / "file", "12345");
    closeGate();
    controller->updateAll(listOf({folder / "file", "/missing"}));
    EXPECT_FALSE(model.waitingForData->value());
    const QImage waiting = table().grab().toImage();
    EXPECT_EQ(textAt(0, 0), QStringLiteral("file"));
    EXPECT_EQ(textAt(0, 1), QStringLiteral("waiting…"));
    const QSignalSpy resets(table().model(), &QAbstractItemModel::modelReset);
    const QSignalSpy layouts(table().model(), &QAbstractItemModel::layoutChanged);
    extraction.gateOpened.count_down();
    settleUntil([this] { return textAt(1, 1) == QStringLiteral("n/a"); });
    EXPECT_EQ(textAt(0, 1), QStringLiteral("5 bytes"));
    EXPECT_NE(table().grab().toImage(), waiting);
    EXPECT_EQ(resets.count() + layouts.count(), 0);
}

TEST_F(PreviewTableTest, CellsTellTheirStateByColour) {
    const auto rolesOf = [](PreviewTableCellView& cell) {
        cell.setHighlighted(false);
        const ColorRole plain = cell.nameLabel.textRole;
        cell.setHighlighted(true);
        return std::pair(plain, cell.nameLabel.textRole);
    };
    closeGate();
    const auto node = nodeAt("/missing");
    const auto cell = cellOf(node, "size");
    EXPECT_EQ(rolesOf(*cell), std::pair(ColorRole::waitingText, ColorRole::selectionSecondaryText));
    bool changed = false;
    cell->onChange = [&changed] { changed = true; };
    extraction.gateOpened.count_down();
    settleUntil([&changed] { return changed; });
    EXPECT_EQ(cell->state, State::empty);
    EXPECT_EQ(rolesOf(*cell),
              std::pair(ColorRole::secondaryText, ColorRole::selectionSecondaryText));
    const auto present = cellOf(node, "name");
    EXPECT_EQ(rolesOf(*present), std::pair(ColorRole::text, ColorRole::selectionText));
    const auto unknown = cellOf(node, "no_such_column");
    EXPECT_EQ(unknown->state, State::empty);
    EXPECT_EQ(unknown->nameLabel.text, QStringLiteral("n/a"));
}

TEST_F(PreviewTableTest, ACellWaitsOnceMoreForValuesThatWereCleared) {
    tests::writeFile(folder / "file", "12345");
    const auto node = nodeAt(folder / "file");
    closeGate();
    const auto cell = cellOf(node, "size");
    DataCoordinator::shared().retrieveDataSynchronously(*node, MetadataSource::basic);
    metadata::MetadataStorage::shared().clear();
    mainQueue.drain();
    EXPECT_EQ(cell->state, State::waiting);
    extraction.gateOpened.count_down();
    settleUntil([&cell] { return cell->state == State::present; });
    EXPECT_EQ(cell->nameLabel.text, QStringLiteral("5 bytes"));
}

TEST_F(PreviewTableTest, ACellThatHasGoneKeepsNothingAlive) {
    closeGate();
    auto node = nodeAt("/missing");
    auto cell = cellOf(node, "size");
    const std::weak_ptr<Node> weakNode = node;
    const std::weak_ptr<PreviewTableCellView> weakCell = cell;
    node.reset();
    cell.reset();
    EXPECT_TRUE(weakCell.expired());
    extraction.gateOpened.count_down();
    settleUntil([&weakNode] { return weakNode.expired(); });
    EXPECT_FALSE(extracted().contains("/missing"));
}

TEST_F(PreviewTableTest, OnlyCellsInViewAsk) {
    controller->updateAll(listOf(numbered(1, 5000)));
    table().grab();
    settleUntil([this] { return extracted().contains("/missing/1"); });
    const auto inView =
        static_cast<std::size_t>(table().viewport()->height() / table().rowHeight(0) + 1);
    EXPECT_LE(extracted().size(), inView);
    table().scrollToBottom();
    table().grab();
    settleUntil([this] { return extracted().contains("/missing/5000"); });
    EXPECT_LE(extracted().size(), 2 * inView);
}

TEST_F(PreviewTableTest, OfLongValuesCellsKeepWhatIsShown) {
    const std::string astral = "\U0001F600";
    std::string name;
    for (int i = 0; i < 1200; ++i) name += astral;
    const auto node = nodeAt("/first" + std::string(3000, 'a') + "/x" + name);
    const QString face = QString::fromStdString(astral);
    // No half of a pair is left where a text is cut.
    EXPECT_EQ(cellOf(node, "file_name")->nameLabel.text,
              QStringLiteral("x") + face.repeated(999) + QStringLiteral("…"));
    EXPECT_EQ(cellOf(nodeAt("/" + name), "file_name")->nameLabel.text,
              face.repeated(1000) + QStringLiteral("…"));
    PreviewTableCellView path;
    path.node = node;
    path.valueKey = "absolute_path";
    path.configureLabel();
    EXPECT_EQ(path.nameLabel.text, QStringLiteral("/first") + QString(994, u'a') +
                                       QStringLiteral("…") + face.repeated(500));
}

TEST_F(PreviewTableTest, ColumnsFollowTheColumnList) {
    controller->updateAll(listOf({"/missing"}));
    setColumns({"absolute_path", "unheard_of", "name", "name"});
    controller->updateAll(controller->previewTableViewDataSource().nodes);
    QStringList titles;
    for (int i = 0; i < table().model()->columnCount(); ++i) {
        titles << table().model()->headerData(i, Qt::Horizontal).toString();
    }
    EXPECT_EQ(titles.join(QStringLiteral("|")).toStdString(),
              "Full Path (including file name)|unheard_of|Name (with file extension)|"
              "Name (with file extension)");
    EXPECT_EQ(textAt(0, 3), QStringLiteral("missing"));
    setColumns({});
    controller->updateAll(listOf({"/missing", "/other"}));
    table().grab();
    EXPECT_EQ(table().model()->columnCount(), 0);
    EXPECT_EQ(sentence(), QString());
}

TEST_F(PreviewTableTest, ADraggedHeaderRewritesTheColumnList) {
    setColumns({"name", "size", "name"});
    controller->updateAll(listOf({"/missing"}));
    QHeaderView& header = *table().horizontalHeader();
    const auto middleOf = [&](int column) {
        return QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, 9);
    };
    const auto dragFirstBehindSecond = [&](const std::function<void()>& meanwhile) {
        const QPoint target = middleOf(1) + QPoint(header.sectionSize(1) / 2 - 4, 0);
        QTest::mousePress(header.viewport(), Qt::LeftButton, {}, middleOf(0));
        QTest::mouseMove(header.viewport(), (middleOf(0) + target) / 2);
        QTest::mouseMove(header.viewport(), target);
        meanwhile();
        QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, target);
        QCoreApplication::processEvents();
        return model.columnList.value().texts();
    };
    EXPECT_THAT(dragFirstBehindSecond([] {}), ElementsAre("size", "name", "name"));
    const auto otherColumns = [&] {
        setColumns({"a", "b", "c"});
        controller->updateColumns();
    };
    EXPECT_THAT(dragFirstBehindSecond(otherColumns), ElementsAre("a", "b", "c"));
    EXPECT_EQ(header.visualIndex(0), 0);
}

TEST_F(PreviewTableTest, WhatIsInViewIsFetchedBeforeWhatWasScrolledTo) {
    setColumns({"size"});
    closeGate();
    controller->updateAll(listOf(numbered(100, 199)));
    const int rows = table().rowsInView().last + 1;
    QScrollBar& bar = *table().verticalScrollBar();
    bar.setValue((rows - 1) * table().rowHeight(0));
    bar.setValue(0);
    extraction.gateOpened.count_down();
    settleUntil([&] { return textAt(0, 0) == QStringLiteral("n/a"); });
    const auto order = extraction.extracted();
    const auto placeOf = [&](int number) {
        return std::ranges::find(order, "/missing/" + std::to_string(number)) - order.begin();
    };
    for (int row = 1; row < rows; ++row) {
        EXPECT_LT(placeOf(100 + row - 1), placeOf(100 + row)) << "from above";
    }
    EXPECT_LT(placeOf(100 + rows - 1), placeOf(100 + rows));
}

TEST_F(PreviewTableTest, ACopyAfterAnotherListHasComeIsOfThatList) {
    controller->updateAll(listOf(numbered(1, 50)));
    table().selectAll();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), QPoint(20, 20));
    QCoreApplication::sendEvent(table().viewport(), &event);
    QAction* const copy = table().findChild<QMenu*>()->actions().front();
    setColumns({"name"});
    controller->updateAll(listOf({"/missing/2"}));
    table().selectAll();
    copy->trigger();
    const auto copied = [] { return QGuiApplication::clipboard()->text(); };
    EXPECT_TRUE(tests::waitUntil([&] {
        QCoreApplication::processEvents();
        return copied() == QStringLiteral("2");
    })) << copied().toStdString();
}

TEST_F(PreviewTableTest, AnEmptyListSaysWhatToDo) {
    const QString drop = QStringLiteral("Drop folders or files here, or press “Add …”.");
    EXPECT_EQ(sentence(), drop);
    controller->updateAll(listOf({}));
    EXPECT_EQ(sentence(), drop);
    setSources({"/folder"});
    EXPECT_EQ(sentence(), QStringLiteral("Waiting..."));
    controller->updateAll(controller->previewTableViewDataSource().nodes);  // a new column
    EXPECT_EQ(sentence(), QStringLiteral("Waiting..."));
    controller->updateAll(listOf({}));
    EXPECT_TRUE(sentence().startsWith(QStringLiteral("Nothing to list"))) << qPrintable(sentence());
    setSources({});
    EXPECT_EQ(sentence(), drop);
    controller->updateAll(listOf({"/missing"}));
    EXPECT_EQ(sentence(), QString());
}

TEST_F(PreviewTableTest, SelectionGoesWithTheFilesAndTellsTheFirst) {
    std::vector<std::string> told;
    controller->selectionChanged = [&told](const std::shared_ptr<Node>& node) {
        told.emplace_back(node != nullptr ? node->absolutePath() : "none");
    };
    controller->updateAll(listOf({"/a", "/b", "/c", "/d"}));
    table().selectRows({{1, 1}, {3, 3}});
    EXPECT_THAT(told, ElementsAre("/b"));
    controller->updateAll(listOf({"/d", "/new", "/b", "/a"}));
    EXPECT_THAT(selectedRows(), ElementsAre(0, 2));
    EXPECT_THAT(told, ElementsAre("/b", "/d"));
    controller->updateAll(controller->previewTableViewDataSource().nodes);
    EXPECT_THAT(selectedRows(), ElementsAre(0, 2));
    controller->updateAll(listOf({"/new", "/a"}));
    EXPECT_THAT(selectedRows(), IsEmpty());
    EXPECT_THAT(told, ElementsAre("/b", "/d", "none"));

    controller->updateAll(listOf(numbered(1, 3000)));
    table().selectAll();
    EXPECT_EQ(selectedRows().size(), 3000U);
    controller->updateColumns();
    EXPECT_EQ(selectedRows().size(), 3000U);
    controller->updateAll(listOf(numbered(1, 2999)));
    EXPECT_THAT(selectedRows(), IsEmpty()) << "too many to look for";
}

TEST_F(PreviewTableTest, TheRowsInViewStayThere) {
    controller->updateAll(listOf(numbered(1, 1000)));
    QScrollBar& bar = *table().verticalScrollBar();
    const int row = table().rowHeight(0);
    controller->updateAll(listOf(numbered(0, 1000)));
    EXPECT_EQ(bar.value(), 0) << "at the top new rows are to be seen";
    table().selectRows({{20, 29}});
    bar.setValue(500 * row + 7);
    controller->updateAll(listOf(numbered(4, 1000)));
    EXPECT_EQ(bar.value(), 496 * row + 7);
    EXPECT_EQ(table().selectedRow(), 16);
    setColumns({"name"});
    controller->updateAll(controller->previewTableViewDataSource().nodes);
    EXPECT_EQ(bar.value(), 496 * row + 7);
    controller->updateAll(listOf(numbered(1, 100)));
    EXPECT_EQ(bar.value(), bar.maximum()) << "no such row any more";
    bar.setValue(0);
    controller->updateAll(listOf(numbered(2, 100)));
    EXPECT_EQ(bar.value(), 0) << "the selected rows are below";
}

}  // namespace
}  // namespace marquell::window
