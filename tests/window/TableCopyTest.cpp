// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "metadata/DataCoordinator.h"
#include "metadata/MetadataStorage.h"
#include "platform/Surroundings.h"
#include "shell/EventLoop.h"
#include "support/GatedExtraction.h"
#include "support/NodeAt.h"
#include "window/preview/TableCopy.h"

namespace marquell::window {
namespace {

using pipeline::FlatFileList;
using testing::ElementsAre;
using testing::IsEmpty;
using tests::nodeAt;

class TableCopyTest : public testing::Test {
protected:
    TableCopyTest() {
        metadata::MetadataStorage::shared().clear();
        QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &observer, [this] {
            const std::string text = QGuiApplication::clipboard()->text().toStdString();
            if (!text.empty() && (copied.empty() || copied.back() != text)) copied.push_back(text);
        });
    }
    ~TableCopyTest() override {
        QGuiApplication::clipboard()->clear();
        metadata::MetadataStorage::shared().clear();
    }

    static std::shared_ptr<FlatFileList> listOf(const std::vector<std::string>& paths) {
        auto list = std::make_shared<FlatFileList>();
        for (const std::string& path : paths) list->files.push_back(nodeAt(path));
        return list;
    }
    bool isCopied() const {
        return tests::waitUntil([this] { return !copied.empty(); });
    }

    tests::TemporaryFolder folder;
    tests::GatedExtraction extraction;
    std::optional<TableCopy> copy{std::in_place};
    std::vector<std::string> copied;  // the texts that the clipboard had, one after the other
    QObject observer;
};

TEST_F(TableCopyTest, RowsComeWhenTheirValuesAreThere) {
    tests::writeFile(folder / "five", "12345");
    const auto list = listOf({folder / "five", "/left out", "/a\tb\nc", "/gate"});
    // Somebody else is at the last file and takes his time.
    metadata::DataCoordinator::shared().retrieveDataAsynchronously(list->files.back(),
                                                                   metadata::MetadataSource::basic);
    extraction.gateReached.wait();
    copy->copyRows(list, {{0, 0}, {2, 3}}, {"name", "size", "unheard_of", "name"});
    tests::runFor(std::chrono::milliseconds(50));
    EXPECT_THAT(copied, IsEmpty());
    extraction.gateOpened.count_down();
    ASSERT_TRUE(isCopied());
    const std::string odd = list->files[2]->getDisplayString("name").text;
    EXPECT_EQ(odd.find_first_of("\t\n"), std::string::npos);
    const std::string rows =
        "five\t5 bytes\tn/a\tfive\n" + odd + "\tn/a\tn/a\t" + odd + "\ngate\tn/a\tn/a\tgate";
    EXPECT_THAT(copied, ElementsAre(rows));
    const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data.formats().front(), QStringLiteral("text/tab-separated-values"));
    EXPECT_EQ(data.data(QStringLiteral("text/tab-separated-values")).toStdString(), rows);
}

TEST_F(TableCopyTest, ANewerCopyOfAnyTableTakesThePlaceOfOneUnderWay) {
    copy->copyRows(listOf({"/gate"}), {{0, 0}}, {"size"});
    extraction.gateReached.wait();
    TableCopy other;
    copy->copyValues(nodeAt("/values"), {"name", "size"}, false);
    other.copyValues(nodeAt("/values"), {"name", "size"}, true);
    // Nothing to copy is no copy.
    copy->copyRows(listOf({"/none"}), {}, {"name"});
    copy->copyRows(listOf({"/none"}), {{0, 0}}, {});
    extraction.gateOpened.count_down();
    ASSERT_TRUE(isCopied());
    copy.reset();  // what the first table had to do is over
    tests::runFor(std::chrono::milliseconds(20));
    EXPECT_THAT(copied, ElementsAre("Name (with file extension)\tvalues\nsize\tn/a"));
    other.copyValues(nodeAt("/values"), {"name", "size"}, false);
    EXPECT_TRUE(tests::waitUntil([this] { return copied.back() == "values\nn/a"; }));
}

TEST_F(TableCopyTest, ItsEndEndsWhatIsUnderWay) {
    constexpr int count = 100'000;
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) paths.push_back("/missing/" + std::to_string(i));
    auto list = listOf(paths);
    const std::weak_ptr<const FlatFileList> kept = list;
    copy->copyRows(std::exchange(list, nullptr), {{0, count - 1}}, {"name", "size"});
    extraction.extracted(1);
    copy.reset();
    EXPECT_TRUE(kept.expired());
    EXPECT_LT(extraction.extracted().size(), std::size_t{count});
    tests::runFor(std::chrono::milliseconds(20));
    EXPECT_THAT(copied, IsEmpty());
}

}  // namespace
}  // namespace marquell::window
