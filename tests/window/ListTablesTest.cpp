// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest/QTest>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "lists/tables/ColumnListTableViewController.h"
#include "lists/tables/SourceListTableViewController.h"
#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/tables/CellText.h"

namespace marquell {
namespace {

/// Presses the mouse in one place and releases it in another.
void sweep(const QAbstractScrollArea& area, QPoint from, QPoint to) {
    QTest::mousePress(area.viewport(), Qt::LeftButton, {}, from);
    for (int i = 1; i <= 5; ++i) {
        const QPointF place(from + (to - from) * i / 5);
        QMouseEvent move(QEvent::MouseMove, place, area.viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(area.viewport(), &move);
    }
    QTest::mouseRelease(area.viewport(), Qt::LeftButton, {}, to);
}

}  // namespace
}  // namespace marquell

namespace marquell::lists {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using toolkit::CellTable;
using toolkit::RowRange;

using Texts = std::vector<std::string>;

std::vector<std::pair<int, int>> selectionOf(const CellTable& table) {
    std::vector<std::pair<int, int>> ranges;
    for (const RowRange& each : table.selectedRows()) ranges.emplace_back(each.first, each.last);
    return ranges;
}

/// A window with both tables, and what they show.
class ListTables : public testing::Test {
protected:
    ListTables() {
        platform::MainQueue::install(&mainQueue);
        using enum toolkit::LayoutAttribute;
        double at = 20;
        for (toolkit::NiblessViewController* each :
             {static_cast<toolkit::NiblessViewController*>(sources.get()),
              static_cast<toolkit::NiblessViewController*>(columns.get())}) {
            window.factory().internalAddBrick(each->view(), [&](auto& make) {
                make.container().pin(left, left, 17).pin(top, top, at);
                make.width(366).maxHeight(250);
            });
            at += 300;
        }
        toolkit::LayoutRoot::install(&window);
        window.resize(400, 600);
        window.show();
        QApplication::setActiveWindow(&window);
        defaults->addObserver("Sources", [this] { ++writes; });
        show({"/a", "/b", "/c", "/d", "/e"});
    }
    ListTables(const ListTables&) = delete;
    ListTables& operator=(const ListTables&) = delete;
    ~ListTables() override { platform::MainQueue::install(nullptr); }

    void show(const Texts& paths) {
        defaults->setObject(platform::TextList(paths), "Sources");
        defaults->setObject(platform::TextList{"name", "exif_model", "absolute_path"}, "Columns");
        table.selectRows({});
        QApplication::processEvents();  // the layout follows
        writes = 0;
    }

    Texts paths() const { return sourceList.value().texts(); }

    QPushButton* button(const std::string& name) const {
        for (auto* each : table.viewport()->findChildren<QPushButton*>()) {
            if (each->isVisible() && each->accessibleName().toStdString() == name) return each;
        }
        return nullptr;
    }

    static std::string focused() {
        return QApplication::focusWidget()->accessibleName().toStdString();
    }

    /// Drags the rows into the gap before `row`, as if they came from `source`.
    bool dragTo(const std::vector<RowRange>& rows, int row, const QObject* source) {
        const auto data = sources->writeRows(rows);
        const toolkit::TableDrag drag{*data, source};
        return sources->validateDrop(drag, row) == Qt::MoveAction && sources->acceptDrop(drag, row);
    }

    const tests::TemporaryFolder folder;
    platform::PumpedMainQueue mainQueue;
    const std::shared_ptr<platform::UserDefaults> defaults =
        platform::UserDefaults::open(folder / "settings.json", [](const auto&) {});
    SourceListData sourceList{defaults};
    ColumnListData columnList{defaults};
    toolkit::Wall window;
    std::unique_ptr<SourceListTableViewController> sources =
        toolkit::makeController<SourceListTableViewController>(sourceList, defaults);
    std::unique_ptr<ColumnListTableViewController> columns =
        toolkit::makeController<ColumnListTableViewController>(columnList, defaults);
    CellTable& table = *sources->tableView();
    int writes = 0;
};

TEST_F(ListTables, ViewAsksForTheHeightOfItsRows) {
    const int row = toolkit::metrics().rowHeight();
    const auto heightWith = [&](const Texts& paths) {
        show(paths);
        return sources->view()->height();
    };
    EXPECT_EQ(heightWith({"/a", "/b", "/c", "/d", "/e"}), 5 * row + 2);
    EXPECT_EQ(heightWith({"/a"}), row + 2);
    EXPECT_FALSE(table.verticalScrollBar()->isVisible());
    EXPECT_EQ(heightWith(Texts(30, "/a")), 250) << "no more than allowed";
    EXPECT_TRUE(table.verticalScrollBar()->isVisible());
}

TEST_F(ListTables, ButtonOfARowRemovesIt) {
    table.selectRows({{0, 0}, {3, 4}});
    QTest::mouseClick(button("Remove /d"), Qt::LeftButton);
    EXPECT_THAT(paths(), ElementsAre("/a", "/b", "/c", "/e"));
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(0, 0), std::pair(3, 3)))
        << "the other rows stay selected";
    EXPECT_EQ(button("Remove /d"), nullptr);
    EXPECT_EQ(writes, 1);
    QTest::mouseClick(button("Remove /b"), Qt::LeftButton);
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(0, 0), std::pair(2, 2)));
    EXPECT_TRUE(table.hasFocus()) << "keys go on with what is selected";
    table.selectRows({{2, 2}});
    QTest::mouseClick(button("Remove /e"), Qt::LeftButton);
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(1, 1))) << "the last of the rest";
}

TEST_F(ListTables, KeyboardReachesTheButtonsAndStaysThere) {
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    table.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Remove /a");
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(0, 0)));
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Remove /b");
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(1, 1)));
    press(Qt::Key_Space);
    EXPECT_EQ(focused(), "Remove /c") << "the button that is there now";
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(1, 1)));
    for (int i = 0; i < 9; ++i) press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(focused(), "Remove /d") << "there is no row behind any more";
    press(Qt::Key_Escape);
    EXPECT_TRUE(table.hasFocus());
    press(Qt::Key_Right);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), columns->tableView()) << "no stops at other buttons";
    EXPECT_THAT(paths(), ElementsAre("/a", "/c", "/d"));

    table.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    for (int i = 0; i < 3; ++i) press(Qt::Key_Space);
    EXPECT_THAT(paths(), IsEmpty());
    EXPECT_TRUE(table.hasFocus()) << "nowhere else to go";
}

TEST_F(ListTables, KeysAtAButtonActOnItsRow) {
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    };
    table.setFocus(Qt::TabFocusReason);
    table.selectRows({{1, 3}});
    press(Qt::Key_Right);
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(paths(), ElementsAre("/a", "/c", "/d", "/b", "/e"));
    EXPECT_EQ(focused(), "Remove /b");
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(focused(), "Remove /b");
    press(Qt::Key_Delete);
    EXPECT_THAT(paths(), ElementsAre("/a", "/c", "/d", "/e"));
    EXPECT_EQ(focused(), "Remove /d");
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(focused(), "Remove /d") << "the last one";
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(2, 2)));
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_TRUE(table.hasFocus()) << "several rows have no button";
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(1, 2)));
    QApplication::setLayoutDirection(Qt::RightToLeft);
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), "Remove /c");
    press(Qt::Key_Right);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_TRUE(table.hasFocus());
}

TEST_F(ListTables, KeysRemoveAndMoveTheSelectedRowsInOneWrite) {
    table.setFocus(Qt::TabFocusReason);
    table.selectRows({{1, 1}, {3, 3}});
    QTest::keyClick(&table, Qt::Key_Up, Qt::AltModifier);
    EXPECT_THAT(paths(), ElementsAre("/b", "/d", "/a", "/c", "/e"));
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(0, 1)));
    QTest::keyClick(&table, Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(paths(), ElementsAre("/a", "/b", "/d", "/c", "/e"));
    EXPECT_EQ(writes, 2);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_THAT(paths(), ElementsAre("/a", "/c", "/e"));
    EXPECT_EQ(writes, 3);
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(1, 1))) << "the row that is there now";
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_Backspace);
    EXPECT_THAT(paths(), IsEmpty());
    EXPECT_EQ(writes, 4);
}

TEST_F(ListTables, TheEndOfAScrolledListCanBeDeleted) {
    Texts many;
    for (int i = 10; i < 40; ++i) many.push_back("/" + std::to_string(i));
    show(many);
    table.setFocus(Qt::TabFocusReason);
    table.setCurrentIndex(table.model()->index(4, 0));
    QTest::keyClick(&table, Qt::Key_End, Qt::ShiftModifier);
    EXPECT_THAT(selectionOf(table), ElementsAre(std::pair(4, 29)));
    table.scrollToBottom();
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_THAT(paths(), ElementsAre("/10", "/11", "/12", "/13"));
    EXPECT_NE(button("Remove /13"), nullptr);
}

TEST_F(ListTables, MenuOffersWhatMakesSense) {
    const auto offered = [&] {
        Q_EMIT table.customContextMenuRequested(QPoint(5, 5));
        auto* menu = table.findChild<QMenu*>();
        std::string names;
        for (const QAction* each : menu->actions()) {
            if (each->isEnabled()) names += each->text().toStdString() + ";";
        }
        delete menu;
        return names;
    };
    EXPECT_EQ(offered(), "Select All;");
    table.selectRows({{0, 1}});
    EXPECT_EQ(offered(), "Remove;Move Down;Select All;");
    table.selectRows({{4, 4}});
    EXPECT_EQ(offered(), "Remove;Move Up;Select All;");
    show({});
    EXPECT_EQ(offered(), "");
}

TEST_F(ListTables, OwnRowsCanBeDraggedAndStaySelected) {
    struct Case {
        std::vector<RowRange> rows;
        int toRow;
        Texts result;
        std::pair<int, int> selected;
    };
    const Case cases[] = {
        {{{0, 1}}, 4, {"/c", "/d", "/a", "/b", "/e"}, {2, 3}},
        {{{4, 4}}, 0, {"/e", "/a", "/b", "/c", "/d"}, {0, 0}},
        {{{0, 0}, {4, 4}}, 2, {"/b", "/a", "/e", "/c", "/d"}, {1, 2}},
        {{{2, 2}}, 5, {"/a", "/b", "/d", "/e", "/c"}, {4, 4}},
        {{{2, 2}}, 3, {"/a", "/b", "/c", "/d", "/e"}, {2, 2}},
    };
    for (const Case& each : cases) {
        show({"/a", "/b", "/c", "/d", "/e"});
        EXPECT_TRUE(dragTo(each.rows, each.toRow, &table));
        EXPECT_EQ(paths(), each.result);
        EXPECT_THAT(selectionOf(table), ElementsAre(each.selected));
        EXPECT_LE(writes, 1);
    }
}

TEST_F(ListTables, PointerDragsTheSelectedRows) {
    const int row = toolkit::metrics().rowHeight();
    table.selectRows({{1, 2}});
    sweep(table, QPoint(50, row + 9), QPoint(60, 4 * row));
    EXPECT_EQ(sourceList.draggedIndices, (IndexSet{1, 2}));
}

TEST_F(ListTables, RowsOfAnotherTableAreRefused) {
    EXPECT_FALSE(dragTo({{0, 1}}, 4, columns->tableView()));
    EXPECT_FALSE(dragTo({{0, 1}}, 4, nullptr)) << "another program";
    EXPECT_THAT(paths(), ElementsAre("/a", "/b", "/c", "/d", "/e"));
}

/// What a file manager does with the addresses of files above a view.
class FileDrag {
public:
    FileDrag(QWidget* view, const QByteArray& uriList) : view_(view) {
        data_.setData(QStringLiteral("text/uri-list"), uriList);
    }

    Qt::DropAction enter(QPoint place) {
        QDragEnterEvent event(place, offered, &data_, Qt::LeftButton, Qt::NoModifier);
        return actionOf(event);
    }
    Qt::DropAction drop(QPoint place) {
        QDropEvent event(place, offered, &data_, Qt::LeftButton, Qt::NoModifier);
        return actionOf(event);
    }

private:
    static constexpr auto offered = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

    Qt::DropAction actionOf(QDropEvent& event) {
        event.setAccepted(false);
        QCoreApplication::sendEvent(view_, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    QWidget* const view_;
    QMimeData data_;
};

TEST_F(ListTables, FilesDroppedAnywhereGoToTheEndAsTheyAreNamed) {
    int alerts = 0;
    sourceList.showAlert = [&](const Alert&) { ++alerts; };
    FileDrag drag(table.viewport(), "file:///x%20y\r\nhttp://host/z\r\nfile:///n%ff\r\n");
    const QImage before = table.grab().toImage();
    EXPECT_EQ(drag.enter(QPoint(9, 9)), Qt::CopyAction);
    const QImage during = table.grab().toImage();
    const QColor line = color(toolkit::ColorRole::selection, &table);
    EXPECT_EQ(during.pixelColor(200, table.height() - 1), line) << "the end of the list";
    EXPECT_EQ(drag.drop(QPoint(9, 9)), Qt::CopyAction);
    EXPECT_EQ(table.grab().toImage(), before) << "the line goes";
    EXPECT_THAT(paths(), SizeIs(5)) << "only when the drop has ended";
    mainQueue.drain();
    EXPECT_THAT(paths(), ElementsAre("/a", "/b", "/c", "/d", "/e", "/x y", "/n\xff"));
    QApplication::processEvents();
    EXPECT_NE(button("Remove /n\xef\xbf\xbd"), nullptr) << "shown as far as it can be";
    EXPECT_EQ(alerts, 0);

    FileDrag again(table.viewport(), "file:///a/below\r\n");
    again.enter(QPoint(9, 9));
    EXPECT_EQ(again.drop(QPoint(9, 9)), Qt::CopyAction);
    mainQueue.drain();
    EXPECT_EQ(alerts, 1);
    EXPECT_THAT(paths(), SizeIs(7));
    EXPECT_EQ(FileDrag(columns->tableView()->viewport(), "file:///f").enter(QPoint(9, 9)),
              Qt::IgnoreAction)
        << "left to the window";
}

TEST_F(ListTables, ColumnsFromElsewhereLandInTheirOrder) {
    QMimeData data;
    data.setData(QString::fromLatin1(ColumnListData::externalPasteboardType), "dummy");
    const toolkit::TableDrag drag{data, &window};
    const auto dropped = [&](int row) {
        return columns->validateDrop(drag, row) != Qt::IgnoreAction &&
               columns->acceptDrop(drag, row);
    };
    EXPECT_TRUE(dropped(1)) << "nothing to insert is no refusal";
    EXPECT_THAT(columnList.value(), SizeIs(3));
    columns->obtainDraggedColumnIds = [] { return Texts{"A", "B"}; };
    EXPECT_TRUE(dropped(1));
    EXPECT_THAT(columnList.value(), ElementsAre("name", "A", "B", "exif_model", "absolute_path"));
}

TEST_F(ListTables, CellsSayTitleAndAbbreviation) {
    const auto cell = [&](int row) {
        return columns->viewFor(columns->tableView()->columns().front(), row);
    };
    EXPECT_EQ(cell(0)->nameLabel.text.toStdString(), "Name (with file extension)");
    EXPECT_TRUE(cell(0)->nameLabel.abbreviation.isEmpty());
    EXPECT_EQ(cell(1)->nameLabel.abbreviation.toStdString(), "EXIF");
    cell(1)->setHighlighted(true);

    const auto* accessible = QAccessible::queryAccessibleInterface(columns->tableView());
    const auto* told =
        const_cast<QAccessibleInterface*>(accessible)->tableInterface()->cellAt(1, 0);
    EXPECT_EQ(told->text(QAccessible::Name).toStdString(), "Camera Model EXIF");
}

TEST_F(ListTables, TableGoesWithItsController) {
    sources.reset();
    defaults->setObject(platform::TextList{"/z"}, "Sources");
    QApplication::processEvents();
    EXPECT_FALSE(window.grab().isNull());
}

}  // namespace
}  // namespace marquell::lists

namespace marquell::toolkit {
namespace {

using testing::Each;
using testing::ElementsAre;

class TextCell : public TableCellView {
public:
    explicit TextCell(const QString& text) { nameLabel.text = text; }
    bool isComplete() const override { return !waits; }
    void show(const QString& text) {
        nameLabel.text = text;
        waits = false;
        needsDisplay();
    }

    bool waits = false;

protected:
    void setLabelColors(bool /*highlighted*/) override {}
};

/// A million rows that count how often they are asked for.
class CountingSource : public CellTableSource {
public:
    int numberOfRows() const override { return rows; }
    std::shared_ptr<TableCellView> viewFor(const TableColumn& column, int row) override {
        ++made;
        lastRow = std::max(lastRow, row);
        auto cell = std::make_shared<TextCell>(column.title + QString::number(row));
        cell->waits = waits;
        alive.push_back(cell);
        return cell;
    }
    /// Gives all cells their value, one after the other.
    void answer(const QString& text) {
        for (const auto& each : alive) {
            if (const auto cell = each.lock()) cell->show(text);
        }
    }
    int takeMade() { return std::exchange(made, 0); }
    long living() const {
        return std::ranges::count_if(alive, [](const auto& each) { return !each.expired(); });
    }

    int rows = 1'000'000;
    int made = 0;
    int lastRow = -1;
    bool waits = false;
    std::vector<std::weak_ptr<TextCell>> alive;
};

class LargeTable : public testing::Test {
protected:
    LargeTable() {
        table.setColumns({{"a", QStringLiteral("A")}, {"b", QStringLiteral("B")}}, true);
        table.resize(400, 25 * row);  // of these rows one is the header
        table.reloadData();
        table.show();
        QApplication::setActiveWindow(&table);
        table.setFocus();
        repaint();
    }

    void repaint() { table.grab(); }

    const int row = metrics().rowHeight();
    CountingSource source;
    CellTable table{source};
};

TEST_F(LargeTable, MakesCellsWhenTheyComeIntoViewAndLetsThemGo) {
    const int shown = 24 * 2;
    EXPECT_EQ(source.takeMade(), shown);
    repaint();
    QTest::mouseMove(table.viewport(), QPoint(50, 50));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    QTest::keyClick(&table, Qt::Key_Down, Qt::ShiftModifier);
    table.selectAll();
    QTest::keyClicks(&table, QStringLiteral("x"));  // would look for a row
    table.resize(410, 25 * row);
    repaint();
    EXPECT_EQ(source.takeMade(), 0) << "nothing new in view";

    table.verticalScrollBar()->setValue(10 * row);
    repaint();
    EXPECT_EQ(source.takeMade(), 10 * 2);
    table.verticalScrollBar()->setValue(0);
    repaint();
    EXPECT_EQ(source.takeMade(), 0) << "near enough to be kept";
    table.verticalScrollBar()->setValue(500'000 * row);
    repaint();
    EXPECT_EQ(source.takeMade(), shown);
    EXPECT_EQ(source.living(), shown);
    table.reloadData();
    repaint();
    EXPECT_EQ(source.takeMade(), shown);
}

TEST_F(LargeTable, SelectsTheRowsThatThePointerPassesWhereNoneCanBeDragged) {
    sweep(table, QPoint(50, 9), QPoint(50, 9 + 4 * row));
    EXPECT_EQ(table.selectedRows().front().first, 0);
    EXPECT_EQ(table.selectedRows().front().last, 4);
}

TEST_F(LargeTable, SelectsAllAsOneRange) {
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table.selectionModel()->selection().size(), 1);
    EXPECT_EQ(table.selectedRow(), 0);
    EXPECT_EQ(table.selectedRows().front().last, 999'999);
}

TEST_F(LargeTable, KeepsItsPlaceWhenReloaded) {
    table.verticalScrollBar()->setValue(1000 * row);
    table.selectRows({{1001, 1003}, {1010, 1010}});
    const auto same = [&] {
        return table.currentIndex().row() == 1001 && table.selectedRows().size() == 2 &&
               table.verticalScrollBar()->value() == 1000 * row;
    };
    table.reloadData();
    EXPECT_TRUE(same());
    source.rows = 2000;
    table.reloadData();
    EXPECT_TRUE(same());
    table.setColumns({{"c", QStringLiteral("C")}}, true);
    EXPECT_TRUE(same());
    source.rows = 1003;
    table.reloadData();
    EXPECT_EQ(table.selectedRows().size(), 1U);
    EXPECT_EQ(table.selectedRows().front().last, 1002);
    EXPECT_EQ(table.verticalScrollBar()->value(), (1003 - 24) * row);
    source.rows = 0;
    table.reloadData();
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(LargeTable, ReadsCellsToAssistiveProgramsWithoutKeepingThem) {
    auto* told = QAccessible::queryAccessibleInterface(&table)->tableInterface();
    EXPECT_EQ(told->cellAt(777'777, 1)->text(QAccessible::Name).toStdString(), "B777777");
    EXPECT_EQ(source.living(), 24 * 2);
    EXPECT_EQ(told->columnDescription(0).toStdString(), "A");
}

TEST_F(LargeTable, ColumnsShareTheView) {
    const auto widths = [&] {
        std::vector<int> all;
        for (int i = 0; i < table.horizontalHeader()->count(); ++i) {
            all.push_back(table.columnWidth(i));
        }
        return all;
    };
    const auto share = [&](int count) {
        table.setColumns(std::vector<TableColumn>(static_cast<std::size_t>(count)), true);
        return widths();
    };
    const int room = table.viewport()->width();
    EXPECT_THAT(share(2), ElementsAre(room / 2, room / 2));
    table.horizontalHeader()->resizeSection(0, room / 2 + 40);
    table.horizontalHeader()->resizeSection(1, room / 2 - 40);
    table.resize(500, table.height());
    EXPECT_THAT(widths(), ElementsAre(room / 2 + 90, room / 2 + 10)) << "alike";
    table.resize(140, table.height());
    EXPECT_THAT(widths(), ElementsAre(88, 88)) << "no smaller";
    EXPECT_TRUE(table.horizontalScrollBar()->isVisible());
    EXPECT_THAT(share(50), Each(88));
    EXPECT_THAT(share(0), ElementsAre());
}

TEST_F(LargeTable, ColumnsBeginAsWideAsTheyNeedWithinLimits) {
    const auto fit = [&](const char* title) {
        table.setColumns({{"a", QString::fromUtf8(title)}, {"b", QStringLiteral("B")}}, true);
        return table.columnWidth(0);
    };
    table.resize(200, table.height());
    const int plain = fit("A column of some width");
    EXPECT_GT(plain, 88);
    EXPECT_LT(plain, 320);
    EXPECT_GT(fit("A column of some more width"), plain);
    const std::string longTitle(200, 'W');
    EXPECT_EQ(fit(longTitle.c_str()), 320);

    source.waits = true;
    source.made = 0;
    table.setColumns({{"a", QStringLiteral("A")}, {"b", QStringLiteral("B")}}, true);
    EXPECT_LE(source.made, 2 * 25) << "only cells in view are measured";
    const int half = table.viewport()->width() / 2;
    EXPECT_EQ(table.columnWidth(0), half);
    source.answer(QStringLiteral("a value that needs some more room"));
    EXPECT_GT(table.columnWidth(0), half) << "once more when all values are there";
    table.horizontalHeader()->resizeSection(0, 50);
    source.answer(QStringLiteral("a value that needs some more room than that"));
    EXPECT_EQ(table.columnWidth(0), 50) << "the user's choice";
}

QRect inkOf(const QImage& image, const QColor& ink) {
    QRegion region;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == ink) region += QRect(x, y, 1, 1);
        }
    }
    return region.boundingRect();
}

TEST(CellText, CutsTheTextButNotTheAbbreviation) {
    const auto inkWith = [](const QString& text) {
        QImage image(160, 24, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        CellLabel label{.text = text, .abbreviation = QStringLiteral("EXIF")};
        label.abbreviationRole = ColorRole::selection;
        drawCellLabel(painter, QRectF(8, 0, 100, 24), label, nullptr);
        painter.end();
        return inkOf(image, color(ColorRole::selection, Surface::light));
    };
    const QRect beside = inkWith(QStringLiteral("Lens"));
    const QRect behindLong = inkWith(QString(1'000'000, u'x'));
    EXPECT_GT(beside.width(), 10);
    EXPECT_EQ(behindLong.size(), beside.size());
    EXPECT_LT(beside.left(), 60);
    EXPECT_GT(behindLong.left(), 70);
    EXPECT_LE(behindLong.right(), 108);
}

TEST(CellText, IsToldWholeWhereItIsCutAndDisguisesNothing) {
    TextCell cell(QStringLiteral("/home/x\u202egnp.exe"));
    EXPECT_TRUE(toolTipOf(cell, 500).isEmpty());
    EXPECT_TRUE(toolTipOf(cell, 50).contains(QStringLiteral("/home/x")));
    EXPECT_FALSE(toolTipOf(cell, 50).contains(QChar(0x202e)));
    cell.toolTip = QStringLiteral("more");
    EXPECT_TRUE(toolTipOf(cell, 500).contains(QStringLiteral("more")));
    cell.toolTip = QString(1'000'000, u'x');
    EXPECT_LT(toolTipOf(cell, 500).size(), 5000) << "as much as a screen can show";
}

}  // namespace
}  // namespace marquell::toolkit
