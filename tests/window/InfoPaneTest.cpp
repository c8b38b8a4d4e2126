// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QClipboard>
#include <QDrag>
#include <QMenu>
#include <QToolButton>
#include <set>

#include "metadata/DataCoordinator.h"
#include "metadata/TagManager.h"
#include "support/GatedExtraction.h"
#include "support/NodeAt.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/tables/CellTable.h"
#include "window/MainWindowFixture.h"
#include "window/info/MarquellSplitView.h"
#include "window/info/SplitDivider.h"

namespace marquell::tests {
namespace {

using metadata::DescriptiveTagSpace;
using testing::ElementsAre;
using toolkit::CellTable;
using toolkit::SegmentedControlBrick;
using window::MarquellSplitView;
using window::SplitDivider;

constexpr int none = -1;

/// The heights that a view is painted in.
struct PaintedHeights : QObject {
    std::set<int> heights;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            heights.insert(static_cast<QWidget*>(watched)->height());
        return false;
    }
};

class InfoPaneTest : public MainWindowFixture {
protected:
    void start(double height = 200, bool isCollapsed = false, QObject* paneWatcher = nullptr) {
        defaults->setObject(height, "infoPaneHeight");
        defaults->setObject(isCollapsed, "infoPaneIsCollapsed");
        defaults->setObject(platform::TextList{"name", "size"}, "Columns");
        open();
        for (CellTable* each : all<CellTable>()) {
            if (each->accessibleName() == QStringLiteral("Info Pane")) {
                each->parentWidget()->parentWidget()->installEventFilter(paneWatcher);
            }
        }
        settle();
    }

    CellTable* table(const char* name) const { return find<CellTable>(QString::fromUtf8(name)); }
    CellTable& pane() const { return *table("Info Pane"); }
    SegmentedControlBrick& segments() const {
        return *find<SegmentedControlBrick>(QStringLiteral("Category"));
    }
    /// Of the pane's first row.
    QString name() const { return pane().model()->index(0, 0).data().toString(); }
    QString value() const { return pane().model()->index(0, 1).data().toString(); }
    bool listHasRows(int rows) const {
        const CellTable* const preview = table("Preview Table");
        return preview != nullptr && preview->model()->rowCount() == rows;
    }
    std::vector<std::string> columns() const { return model->columnList.value().texts(); }

    /// What is seen of the pane, in px.
    int paneHeight() const {
        return table("Info Pane") == nullptr
                   ? 0
                   : pane().parentWidget()->parentWidget()->visibleRegion().boundingRect().height();
    }
    void dragDivider(int dy) const {
        SplitDivider* const divider = all<SplitDivider>().front();
        const QPoint from = divider->mapToGlobal(QPoint(50, 2));
        const auto send = [&](QEvent::Type type, QPoint place, Qt::MouseButtons buttons) {
            QMouseEvent event(type, divider->mapFromGlobal(place), place, Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(divider, &event);
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        for (int i = 1; i <= 10; ++i) {
            send(QEvent::MouseMove, from + QPoint(0, dy * i / 10), Qt::LeftButton);
        }
        send(QEvent::MouseButtonRelease, from + QPoint(0, dy), Qt::NoButton);
    }
    void doubleClickDivider() const {
        QTest::mouseDClick(all<SplitDivider>().front(), Qt::LeftButton);
    }
    void toggle() const {
        QTest::keyClick(window.get(), Qt::Key_I, Qt::ControlModifier);
        QApplication::processEvents();
    }

    /// Drags the pane's selected rows onto the view and releases them there, or leaves it again.
    void dragRows(const char* to, bool isDropped = true) const {
        QWidget* const from = pane().viewport();
        QTest::mousePress(from, Qt::LeftButton, {}, QPoint(40, 12));
        for (const QPoint place : {QPoint(40, 32), QPoint(40, 52)}) {
            QMouseEvent move(QEvent::MouseMove, place, from->mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(from, &move);
        }
        const auto* drag = pane().findChild<QDrag*>();  // over at once, where there is no screen
        ASSERT_NE(drag, nullptr);
        const QMimeData* data = drag->mimeData();
        EXPECT_EQ(data->data(QStringLiteral("marquell_external_columns")), QByteArray("md5"));

        QWidget* const target = table(to)->viewport();
        const QPoint place(40, 2);
        const auto actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(place, actions, data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        QDragLeaveEvent leave;
        QDropEvent drop(place, actions, data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, isDropped ? static_cast<QEvent*>(&drop) : &leave);
        QTest::mouseRelease(from, Qt::LeftButton, {}, QPoint(40, 52));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

TEST_F(InfoPaneTest, HasASegmentForEachCategoryAndARowForEachOfItsColumns) {
    defaults->setObject(int(DescriptiveTagSpace::EXIF), "infoPaneCategory");
    start();
    const auto& tags = metadata::TagManager::shared();
    const auto shownIs = [&](DescriptiveTagSpace space) {
        const auto ids = tags.columns(int(space));
        return segments().indexOfSelectedItem() == int(space) &&
               pane().model()->rowCount() == int(ids.size()) &&
               name().contains(QString::fromStdString(std::string(tags.displayName(ids.front()))));
    };
    EXPECT_TRUE(shownIs(DescriptiveTagSpace::EXIF));
    EXPECT_TRUE(name().endsWith(QStringLiteral(" EXIF")));
    EXPECT_EQ(value(), QString()) << "nothing is selected";

    const auto tabs = segments().findChildren<QToolButton*>();
    ASSERT_EQ(tabs.size(), 12);
    EXPECT_TRUE(tabs[int(DescriptiveTagSpace::IPTCCommonUsage)]->toolTip().contains(
        QStringLiteral("IPTC (Common Usage)")));
    pane().selectRows({{3, 4}});
    pane().scrollToBottom();
    QTest::mouseClick(tabs[int(DescriptiveTagSpace::IPTCCommonUsage)], Qt::LeftButton);
    EXPECT_TRUE(shownIs(DescriptiveTagSpace::IPTCCommonUsage));
    EXPECT_EQ(pane().selectedRow(), none);
    EXPECT_EQ(pane().rowsInView().first, 0);

    model->infoPaneCategory->setValue(99);
    EXPECT_EQ(pane().model()->rowCount(), 0);
    EXPECT_EQ(segments().indexOfSelectedItem(), none);
    model->infoPaneCategory->setValue(int(DescriptiveTagSpace::Basic));
    EXPECT_TRUE(shownIs(DescriptiveTagSpace::Basic));
}

TEST_F(InfoPaneTest, ShowsTheFirstSelectedRowAndWaitsForItsValues) {
    writeFile(root / "one", "1");
    writeFile(root / "two", "22");
    GatedExtraction extraction;
    defaults->setObject(int(DescriptiveTagSpace::Size), "infoPaneCategory");
    start();
    metadata::DataCoordinator::shared().retrieveDataAsynchronously(nodeAt("/gate"),
                                                                   metadata::MetadataSource::basic);
    extraction.gateReached.wait();
    defaults->setObject(platform::TextList{"name"}, "Columns");
    model->sourceList.add({root / "one", root / "two"}, false);
    ASSERT_TRUE(waitUntil([this] { return listHasRows(2); }));
    metadata::MetadataStorage::shared().clear();
    table("Preview Table")->selectRows({{0, 1}});
    pane().selectRows({{1, 1}});
    EXPECT_EQ(value(), QStringLiteral("waiting…"));
    extraction.gateOpened.count_down();
    EXPECT_TRUE(waitUntil([this] { return value() == QStringLiteral("1 byte"); }));
    table("Preview Table")->selectRows({{1, 1}});
    EXPECT_TRUE(waitUntil([this] { return value() == QStringLiteral("2 bytes"); }));
    EXPECT_EQ(pane().selectedRow(), 1) << "another node, the same columns";
    window->mainContentViewController()->clearSources();
    EXPECT_TRUE(waitUntil([this] { return value().isEmpty(); }));
}

TEST_F(InfoPaneTest, DraggedRowsBecomeColumns) {
    defaults->setObject(int(DescriptiveTagSpace::Hashes), "infoPaneCategory");
    start();
    const auto ids = metadata::TagManager::shared().columns(int(DescriptiveTagSpace::Hashes));
    const std::vector<std::string> id(ids.begin(), ids.end());
    pane().selectRows({{0, 0}, {2, 3}});
    dragRows("Preview Table", false);
    EXPECT_THAT(columns(), ElementsAre("name", "size")) << "Escape adds nothing";
    dragRows("Preview Table");
    EXPECT_THAT(columns(), ElementsAre("name", "size", id[3], id[2], id[0])) << "the last first";
    defaults->setObject(platform::TextList{"name", "size"}, "Columns");
    dragRows("Columns");
    EXPECT_THAT(columns(), ElementsAre(id[0], id[2], id[3], "name", "size")) << "in their order";
    dragRows("Source Files / Folders");
    EXPECT_THAT(sources(), ElementsAre());
    EXPECT_EQ(columns().size(), 5);
    dropFiles({root.path()}, pane().viewport());
    EXPECT_TRUE(waitUntil([this] { return sources().size() == 1; })) << "files go past the pane";
}

TEST_F(InfoPaneTest, CommandsCopyAndAddTheSelectedRows) {
    writeFile(root / "two", "22");
    defaults->setObject(int(DescriptiveTagSpace::Size), "infoPaneCategory");
    start();
    const auto ids = metadata::TagManager::shared().columns(int(DescriptiveTagSpace::Size));
    pane().selectRows({{0, 1}});
    model->sourceList.add({root / "two"}, false);
    ASSERT_TRUE(waitUntil([this] { return listHasRows(1); }));
    table("Preview Table")->selectRows({{0, 0}});
    const auto copies = [this](Qt::KeyboardModifiers modifiers, const QString& firstLine) {
        QTest::keyClick(&pane(), Qt::Key_C, modifiers);
        return waitUntil(
            [&] { return QGuiApplication::clipboard()->text().startsWith(firstLine + u'\n'); });
    };
    EXPECT_TRUE(copies(Qt::ControlModifier, QStringLiteral("2 bytes")));
    EXPECT_TRUE(
        copies(Qt::ControlModifier | Qt::ShiftModifier, name() + QStringLiteral("\t2 bytes")));
    QContextMenuEvent ask(QContextMenuEvent::Keyboard, QPoint(5, 5),
                          pane().viewport()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(pane().viewport(), &ask);
    auto* menu = pane().findChild<QMenu*>();
    for (QAction* each : menu->actions()) {
        if (each->text() == QStringLiteral("Add to Columns")) each->trigger();
    }
    menu->close();
    EXPECT_THAT(columns(), ElementsAre("name", "size", ids[0], ids[1]));
}

TEST_F(InfoPaneTest, DividerKeepsToItsLimitsAndCollapsesThePane) {
    start(300);
    window->resize(1180, 900);
    window->resize(1180, 760);
    EXPECT_NEAR(paneHeight(), 300, 1);
    dragDivider(-250);
    EXPECT_EQ(paneHeight(), 400);
    dragDivider(280);
    EXPECT_EQ(paneHeight(), 200);
    dragDivider(-50);
    EXPECT_EQ(paneHeight(), 250);
    doubleClickDivider();
    EXPECT_EQ(paneHeight(), 0);
    window->resize(1180, 700);
    EXPECT_EQ(paneHeight(), 0) << "stays collapsed";
    dragDivider(-90);
    EXPECT_EQ(paneHeight(), 0);
    dragDivider(-110);
    EXPECT_EQ(paneHeight(), 200);
    dragDivider(110);
    EXPECT_EQ(paneHeight(), 0);
    toggle();
    EXPECT_EQ(paneHeight(), 200) << "150 is asked for";
    dragDivider(-50);
    pane().setFocus();
    toggle();
    EXPECT_EQ(paneHeight(), 0);
    EXPECT_TRUE(table("Preview Table")->hasFocus()) << "as the pane can't keep the keyboard";
    doubleClickDivider();
    EXPECT_EQ(paneHeight(), 250) << "as high as before";
}

TEST_F(InfoPaneTest, KeepsItsHeightAndStateForTheNextRun) {
    struct Run {
        double stored;
        bool wasCollapsed;
        int shown;
        double kept;
    };
    for (const Run& run : {Run{150, false, 200, 200}, Run{300, false, 300, 300},
                           Run{300, true, 0, 300}, Run{900, false, 400, 400}}) {
        PaintedHeights painted;
        start(run.stored, run.wasCollapsed, &painted);
        EXPECT_EQ(paneHeight(), run.shown);
        EXPECT_LE(painted.heights.size(), 1) << "it jumped";
        close();
        pipeline::DataModel kept(defaults);
        EXPECT_EQ(kept.infoPaneHeight->value(), run.kept);
        EXPECT_EQ(kept.infoPaneIsCollapsed->value(), run.wasCollapsed);
    }
    start(200);
    window->resize(1180, 900);
    dragDivider(100);
    window->resize(1180, 600);
    EXPECT_LT(all<MarquellSplitView>().front()->paneHeight(), 150)
        << "shrinks with the window, below the limit";
    close();
    EXPECT_EQ(pipeline::DataModel(defaults).infoPaneHeight->value(), 150);

    defaults->setObject(1, "previewMode");
    start(300);  // with the pane on a page that nobody looks at
    toggle();
    close();
    EXPECT_TRUE(pipeline::DataModel(defaults).infoPaneIsCollapsed->value());
    EXPECT_EQ(pipeline::DataModel(defaults).infoPaneHeight->value(), 300);
}

}  // namespace
}  // namespace marquell::tests
