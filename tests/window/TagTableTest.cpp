// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QPushButton>
#include <QtTest/QTest>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "lists/tables/TagListTableViewController.h"
#include "platform/Surroundings.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/Metrics.h"

namespace marquell::lists {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class TagTable : public testing::Test {
protected:
    TagTable() {
        defaults->setObject(platform::TextList{"size"}, columnList.storageKey);
        using enum toolkit::LayoutAttribute;
        window.factory().internalAddBrick(controller->view(), [](auto& make) {
            make.container().pin(left, left, 8).pin(top, top, 8).pin(bottom, bottom, -8);
            make.width(400);
        });
        toolkit::LayoutRoot::install(&window);
        window.resize(500, 216);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    QString text(int row, int column) const {
        return table.model()->index(row, column).data().toString();
    }
    int rowOf(const char* id) const {
        const auto& ids = TagListData().data;
        return static_cast<int>(std::ranges::find(ids, id) - ids.begin());
    }
    QPushButton* button(const char* name) const {
        for (auto* each : table.viewport()->findChildren<QPushButton*>()) {
            if (each->isVisible() && each->accessibleName() == QLatin1String(name)) return each;
        }
        return nullptr;
    }
    std::vector<std::string> columns() const { return columnList.value().texts(); }
    tests::TemporaryFolder folder;
    std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::open(
        folder / "settings.json", [](const std::string& problem) { FAIL() << problem; });
    ColumnListData columnList{defaults};
    std::unique_ptr<TagListTableViewController> controller =
        toolkit::makeController<TagListTableViewController>(columnList);
    toolkit::CellTable& table = *controller->tableView();
    toolkit::Wall window;
};

TEST_F(TagTable, ListsEveryColumnWithWhatItIs) {
    EXPECT_EQ(text(0, 0), QStringLiteral("Name (with file extension)"));
    EXPECT_EQ(text(0, 1), QStringLiteral("Name (with file extension) Description"));
    const int model = rowOf("exif_model");
    EXPECT_EQ(text(model, 0), QStringLiteral("Camera Model EXIF"));
    EXPECT_EQ(text(model, 1), QStringLiteral("Camera Model Description"));
    EXPECT_EQ(table.columnWidth(0), toolkit::metrics().px(200));
    EXPECT_EQ(table.columnWidth(0) + table.columnWidth(1), table.viewport()->width());
    EXPECT_TRUE(table.horizontalHeader()->isHidden());
}

TEST_F(TagTable, AButtonAddsItsColumnAtEachClick) {
    for (int i = 0; i < 2; ++i) {
        QTest::mouseClick(button("Add Name (with file extension)"), Qt::LeftButton);
    }
    EXPECT_THAT(columns(), ElementsAre("size", "name", "name"));
}

TEST_F(TagTable, SeparatorsAreNoColumns) {
    const int separator = rowOf("-");
    table.scrollTo(table.model()->index(separator, 0), QTableView::PositionAtCenter);
    EXPECT_EQ(text(separator, 0) + text(separator, 1), QString());
    EXPECT_EQ(button("Add -"), nullptr);
    const QPoint place = table.visualRect(table.model()->index(separator, 0)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(table.selectedRow(), -1);
    EXPECT_FALSE(controller->commands().front().isEnabled);

    table.selectRows({{0, 0}, {separator - 1, separator + 1}});
    ASSERT_THAT(controller->commands(), SizeIs(1));
    ASSERT_TRUE(controller->commands().front().isEnabled);
    controller->commands().front().run();
    EXPECT_THAT(columns(), ElementsAre("size", "name", "iptc_creator_job_title", "iptc_keywords"));
}

TEST_F(TagTable, TypingLeadsToTheNextTitle) {
    const auto rowFor = [this](const char* typed, int from) {
        return controller->rowForTyped(QLatin1String(typed), from);
    };
    const int first = rowFor("camera m", 0);
    EXPECT_TRUE(text(first, 0).startsWith(QStringLiteral("Camera M")))
        << qPrintable(text(first, 0));
    EXPECT_EQ(rowFor("CAMERA M", first), first);
    const int second = rowFor("camera m", first + 1);
    EXPECT_GT(second, first);
    // Round the end, which the search may also begin behind.
    EXPECT_EQ(rowFor("name (w", second), 0);
    EXPECT_EQ(rowFor("name (w", controller->numberOfRows()), 0);
    EXPECT_EQ(rowFor("-", 0), -1);
}

}  // namespace
}  // namespace marquell::lists
