// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "lists/ColumnListData.h"
#include "lists/SourceListData.h"
#include "platform/Surroundings.h"

namespace marquell::lists {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class StoredLists : public testing::Test {
protected:
    StoredLists() {
        for (const char* key : {"Sources", "Columns"}) {
            defaults->addObserver(key, [this] { ++writes; });
        }
        sources.showAlert = [this](const Alert& alert) {
            EXPECT_EQ(alert.message, "Some files could not be added.");
            EXPECT_THAT(alert.informativeText,
                        testing::HasSubstr("\"subfolders and their contents\""));
            EXPECT_EQ(alert.button, "OK");
            storedAtAlert.push_back(sources.value().texts());
        };
    }

    const tests::TemporaryFolder folder;
    const std::shared_ptr<platform::UserDefaults> defaults =
        platform::UserDefaults::open(folder / "settings.json", [](const auto&) {});
    SourceListData sources{defaults};
    ColumnListData columns{defaults};
    int writes = 0;
    std::vector<Texts> storedAtAlert;
};

TEST_F(StoredLists, SourcesAreRefusedBelowOthers) {
    struct Row {
        Texts before;
        Texts added;
        Texts after;
        bool alert;
    };
    for (const Row& row : std::vector<Row>{
             {{}, {"/a", "/a"}, {"/a", "/a"}, false},
             {{"/a"}, {"/a/b/c"}, {"/a"}, true},
             {{"/a"}, {"/a"}, {"/a"}, true},
             {{"/a/b"}, {"/a"}, {"/a/b", "/a"}, false},
             {{"/a/b"}, {"/a/bc", "/a/b/c", "/x", "/a/b/d"}, {"/a/b", "/a/bc", "/x"}, true},
             {{"/a"}, {"/"}, {"/a", "/"}, false},
             {{"/"}, {"/", "/x"}, {"/"}, true},
             {{}, {"/a/", "/b//c"}, {"/a", "/b/c"}, false},
             {{"/caf\xE9"}, {"/caf\xE9/x", "/caf\xC3\xA9"}, {"/caf\xE9", "/caf\xC3\xA9"}, true},
             {{"/a"}, {}, {"/a"}, false},
         }) {
        defaults->setObject(row.before, "Sources");
        writes = 0;
        storedAtAlert.clear();
        sources.add(row.added, true);
        EXPECT_EQ(sources.value(), row.after);
        EXPECT_EQ(writes, row.before == row.after ? 0 : 1);
        EXPECT_EQ(storedAtAlert, std::vector<Texts>(row.alert ? 1 : 0, row.after))
            << "one alert, after the list was stored";
    }
    sources.add({"/a/b"}, false);
    defaults->setObject("no list", "Sources");
    EXPECT_THAT(sources.value(), IsEmpty());
    sources.deleteAt({0});
    sources.add({"/a"}, true);
    EXPECT_THAT(sources.value(), ElementsAre("/a"));
    EXPECT_EQ(storedAtAlert.size(), 0U);
}

TEST_F(StoredLists, SourcesNeverReachTheFile) {
    sources.add({"/secret\xFF"}, true);
    columns.add("ignored");
    defaults->setObject(1, "other");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_THAT(
        tests::contentOf(folder / "settings.json"),
        testing::AllOf(testing::HasSubstr("other"), testing::Not(testing::HasSubstr("ecret"))));
    EXPECT_THAT(sources.value(), ElementsAre("/secret\xFF"));
    defaults->removeObject("Sources");
    EXPECT_THAT(sources.value(), IsEmpty());
}

TEST_F(StoredLists, RowsMoveAndGoInOneWrite) {
    struct Row {
        IndexSet rows;
        std::size_t target;
        Texts after;
    };
    const Texts five = {"0", "1", "2", "3", "4"};
    for (const Row& row : std::vector<Row>{
             {{0, 1}, 4, {"2", "3", "0", "1", "4"}},
             {{4}, 0, {"4", "0", "1", "2", "3"}},
             {{0, 2, 4}, 5, {"1", "3", "0", "2", "4"}},
             {{1, 3}, 2, {"0", "1", "3", "2", "4"}},
             {{2}, 2, five},
             {{2}, 3, five},
             {{7}, 0, five},
             {{0, 9}, 99, {"1", "2", "3", "4", "0"}},
         }) {
        defaults->setObject(five, "Columns");
        writes = 0;
        columns.move(row.rows, row.target);
        EXPECT_EQ(columns.value(), row.after);
        EXPECT_EQ(writes, row.after == five ? 0 : 1);
    }
    defaults->setObject(five, "Columns");
    writes = 0;
    columns.deleteAt({1, 3, 8});
    columns.deleteAt({3});
    EXPECT_THAT(columns.value(), ElementsAre("0", "2", "4"));
    EXPECT_EQ(writes, 1);
}

TEST_F(StoredLists, ColumnsAreAddedToAListOnly) {
    columns.add("name");
    EXPECT_EQ(writes, 0) << "the key has no value";
    defaults->registerDefault("Columns", Texts{"name", "absolute_path"});
    columns.add("size");
    columns.add("size");
    columns.insertAtRow(1, {"x", "y"});
    columns.insertAtRow(7, {"beyond"});
    columns.insertAtRow(6, {"last"});
    columns.insertAtRow(0, {});
    EXPECT_THAT(columns.value(),
                ElementsAre("name", "x", "y", "absolute_path", "size", "size", "last"));
    EXPECT_EQ(writes, 4);
    defaults->setObject(Texts{}, "Columns");
    columns.add("only");
    EXPECT_THAT(columns.value(), ElementsAre("only"));
}

}  // namespace
}  // namespace marquell::lists
