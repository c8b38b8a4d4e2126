// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "formats/CSVOutputFormat.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/NodeArena.h"
#include "platform/OperationQueue.h"
#include "platform/Surroundings.h"

namespace marquell::formats {
namespace {

using metadata::MetadataSource;
using metadata::MetadataStorage;
using pipeline::DataModelSnapshot;

/// Keeps the text that it is handed.
class Owner : public pipeline::StageOwner {
public:
    void scanOperationFinished(pipeline::ScannerOperation&) override {}
    void reSortOperationFinished(pipeline::ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(OutputFormatOperationType& operation) override {
        texts.emplace_back(operation.outputString()->view());
    }
    std::vector<std::string> texts;
};

class CSVOutput : public testing::Test {
protected:
    void SetUp() override { MetadataStorage::shared().clear(); }
    void TearDown() override { MetadataStorage::shared().clear(); }

    void add(const std::string& name) {
        list_->files.push_back(arena_.make<pipeline::FileNode>(name, "/s/" + name, ""));
    }
    std::shared_ptr<OutputFormatOperationType> newOperation() {
        return CSVOutputFormat().getOutputOperation(std::make_shared<DataModelSnapshot>(snapshot_),
                                                    owner_, list_);
    }
    std::string text() {
        const auto operation = newOperation();
        EXPECT_EQ(operation->totalFileCount(), list_->files.size());
        EXPECT_EQ(operation->currentFileCount(), 0U);
        operation->main();
        EXPECT_EQ(operation->currentFileCount(), list_->files.size());
        return owner_.texts.back();
    }

    DataModelSnapshot snapshot_;
    Owner owner_;
    pipeline::NodeArena arena_;
    std::shared_ptr<pipeline::FlatFileList> list_ = std::make_shared<pipeline::FlatFileList>();
};

TEST_F(CSVOutput, EncodesFieldsByTheSettingsAndNothingElse) {
    struct Row {
        const char* name;
        bool quote;
        int multiLine;
        int linebreaks;
        const char* record;
    };
    for (const Row& row :
         {Row{"a,b.txt", true, 0, 0, "\"a,b.txt\",\"\"\n"},
          Row{"a,b.txt", false, 0, 0, "a,b.txt,\n"},
          Row{"a\"b\"", true, 0, 1, "\"a\"\"b\"\"\",\"\"\r"}, Row{"\"", false, 0, 2, "\"\",\r\n"},
          Row{"l\nr\rt\t\\n", true, 0, 1, "\"l\nr\rt\t\\n\",\"\"\r"},
          Row{"l\nr\rt\t\\n\"", true, 1, 1, "\"l\\nr\\rt\\t\\n\"\"\",\"\"\r"},
          Row{"\r\n", false, 1, 3, "\\r\\n,\n"}, Row{"\r\n", false, 2, -1, "\r\n,\n"},
          Row{"\xE2\x82z\xff", false, 0, 0, "\uFFFD\uFFFDz\uFFFD,\n"}}) {
        list_->files.clear();
        add(row.name);
        snapshot_.columnList = {"name", "no_such_column"};
        snapshot_.quoteStrings = row.quote;
        snapshot_.multiLineMode = row.multiLine;
        snapshot_.linebreaksMode = row.linebreaks;
        EXPECT_EQ(text(), row.record);
    }
}

TEST_F(CSVOutput, WritesTitlesInThreeModes) {
    using Row = std::pair<int, const char*>;
    snapshot_.columnList = {"name", "exif_make", "size", "no\"column"};
    for (const auto& [mode, titles] :
         {Row{0, ""},
          Row{1, "\"Name (with file extension)\",\"Camera Make\",\"size\",\"no\"\"column\"\n"},
          Row{2,
              "\"Name (with file extension)\",\"Camera Make (EXIF)\",\"size\",\"no\"\"column\"\n"},
          Row{-1, "\"Name (with file extension)\",\"Camera Make\",\"size\",\"no\"\"column\"\n"}}) {
        snapshot_.includeColumnTitlesMode = mode;
        EXPECT_EQ(text(), titles);
    }
    snapshot_.columnList = {};
    EXPECT_EQ(text(), "\n");
    add("a");
    add("b");
    EXPECT_EQ(text(), "\n\n\n") << "titles and rows without columns";
}

TEST_F(CSVOutput, WritesEachKindOfValue) {
    const tests::Environment place{{"TZ", "UTC"}};
    MetadataStorage& store = MetadataStorage::shared();
    const metadata::PathKey file(std::string_view("/s/a.b"));
    store.store(file, MetadataSource::basic, "size_in_bytes", std::int64_t{12});
    store.store(file, MetadataSource::basic, "creation_date", platform::Date{-1, 0});
    store.store(file, MetadataSource::imageIO, "exif_make", true);
    for (const auto source : {MetadataSource::basic, MetadataSource::imageIO}) {
        store.store(file, source, "retrieved", true);
    }
    snapshot_.boolValuesMode = 4;
    snapshot_.columnList = {"extension", "full_path_name_length", "size_in_bytes", "creation_date",
                            "exif_make", "modification_date",     "name",          "name"};
    add("a.b");
    EXPECT_EQ(text(), "\"b\",\"6\",\"12\",\"1969-12-31\",\"1\",\"\",\"a.b\",\"a.b\"\n");
}

TEST_F(CSVOutput, CancelledInTimeTellsNobody) {
    add("a");
    const auto operation = newOperation();
    operation->cancel();
    operation->main();
    EXPECT_THAT(owner_.texts, testing::IsEmpty());
    EXPECT_EQ(operation->outputString()->size(), 0U);
}

/// Keeps a queue from going on until it is opened.
class Gate : public platform::Operation {
public:
    void main() override { open.wait(); }
    std::latch open{1};
};

TEST_F(CSVOutput, SupersededItHasNoFileRead) {
    snapshot_.columnList = {"name", "size_in_bytes"};
    add("a");
    for (const bool isStored : {false, true}) {
        const metadata::PathKey file(std::string_view("/s/a"));
        if (isStored)
            MetadataStorage::shared().store(file, MetadataSource::basic, "retrieved", true);
        std::latch drained(1);
        platform::OperationQueue queue("test");
        queue.setDrainedHandler([&drained] { drained.count_down(); });
        const auto gate = std::make_shared<Gate>();
        queue.addOperation(gate);
        queue.addOperation(newOperation());
        queue.addOperation(gate);
        gate->open.count_down();
        drained.wait();
        EXPECT_EQ(MetadataStorage::shared().isRetrieved(file, MetadataSource::basic), isStored);
        EXPECT_THAT(owner_.texts, testing::SizeIs(isStored ? 1 : 0));
    }
}

}  // namespace
}  // namespace marquell::formats
