// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "formats/OutputFormatType.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/NodeArena.h"
#include "platform/OperationQueue.h"
#include "platform/Surroundings.h"

namespace marquell::formats {
namespace {

using metadata::MetadataSource;
using metadata::MetadataStorage;
using pipeline::DataModelSnapshot;
using Index = pipeline::OutputFormatIndexEnum;

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

class OutputFormats : public testing::Test {
protected:
    void SetUp() override { MetadataStorage::shared().clear(); }
    void TearDown() override { MetadataStorage::shared().clear(); }

    void add(const std::string& name) {
        list_->files.push_back(arena_.make<pipeline::FileNode>(name, "/s/" + name, ""));
    }
    std::shared_ptr<OutputFormatOperationType> newOperation() {
        return outputFormat(snapshot_.outputFormat)
            .getOutputOperation(std::make_shared<DataModelSnapshot>(snapshot_), owner_, list_);
    }
    std::string text() {
        const auto operation = newOperation();
        EXPECT_EQ(operation->totalFileCount(), list_->files.size());
        EXPECT_EQ(operation->currentFileCount(), 0U);
        operation->main();
        EXPECT_EQ(operation->currentFileCount(), list_->files.size());
        return owner_.texts.back();
    }

    std::string text(Index format) {
        snapshot_.outputFormat = format;
        return text();
    }

    DataModelSnapshot snapshot_;
    Owner owner_;
    pipeline::NodeArena arena_;
    std::shared_ptr<pipeline::FlatFileList> list_ = std::make_shared<pipeline::FlatFileList>();
};

TEST_F(OutputFormats, EncodesFieldsByTheSettingsAndNothingElse) {
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
        EXPECT_EQ(text(Index::CSV), row.record);
    }
}

TEST_F(OutputFormats, SeparatesFieldsByTabsToo) {
    add("a,b\"\tc");
    snapshot_.columnList = {"name", "no\tcolumn"};
    snapshot_.includeColumnTitlesMode = 1;
    snapshot_.linebreaksMode = 2;
    snapshot_.nullValuesMode = 3;
    EXPECT_EQ(text(Index::TSV),
              "\"Name (with file extension)\"\t\"no\tcolumn\"\r\n\"a,b\"\"\tc\"\t\"nil\"\r\n");
    snapshot_.quoteStrings = false;
    snapshot_.multiLineMode = 1;
    EXPECT_EQ(text(Index::TSV), "Name (with file extension)\tno\\tcolumn\r\na,b\"\"\\tc\tnil\r\n");
    EXPECT_EQ(text(Index::CopyToExcel),
              "\"Name (with file extension)\"\t\"no\tcolumn\"\n\"a,b\"\"\tc\"\t\"nil\"\n");
}

TEST_F(OutputFormats, WritesTitlesInThreeModes) {
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

TEST_F(OutputFormats, WritesEachKindOfValue) {
    const tests::Environment place{{"TZ", "UTC"}};
    MetadataStorage& store = MetadataStorage::shared();
    const metadata::PathKey file(std::string_view("/s/a<b"));
    store.store(file, MetadataSource::basic, "size_in_bytes", std::int64_t{-12});
    store.store(file, MetadataSource::basic, "creation_date", platform::Date{-1, 0});
    store.store(file, MetadataSource::imageIO, "exif_make", true);
    store.store(file, MetadataSource::imageIO, "exif_model", false);
    for (const auto source : {MetadataSource::basic, MetadataSource::imageIO}) {
        store.store(file, source, "retrieved", true);
    }
    snapshot_.boolValuesMode = 4;
    snapshot_.nullValuesMode = 2;
    snapshot_.columnList = {"name",      "size_in_bytes", "creation_date",
                            "exif_make", "exif_model",    "modification_date"};
    add("a<b");
    EXPECT_EQ(text(Index::CSV), "\"a<b\",\"-12\",\"1969-12-31\",\"1\",\"0\",\"n/a\"\n");
    EXPECT_EQ(text(Index::CopyToExcel),
              "\"a<b\"\t\"-12\"\t\"1969-12-31\"\t\"1\"\t\"0\"\t\"n/a\"\n");
    EXPECT_EQ(text(Index::JSON),
              "[\n\t{\n"
              "\t\t\"name\":\"a<b\",\n"
              "\t\t\"size_in_bytes\":-12,\n"
              "\t\t\"creation_date\":\"1969-12-31 23:59:59\",\n"
              "\t\t\"exif_make\":true,\n"
              "\t\t\"exif_model\":false,\n"
              "\t\t\"modification_date\":null\n"
              "\t}\n]");
    EXPECT_EQ(text(Index::CopyToHTML),
              "<table>\n\t<tr>\n"
              "\t\t<td>a&lt;b</td>\n\t\t<td>-12</td>\n\t\t<td>1969-12-31</td>\n"
              "\t\t<td>1</td>\n\t\t<td>0</td>\n\t\t<td>n/a</td>\n"
              "\t</tr>\n</table>\n");
}

TEST_F(OutputFormats, LaysOutJsonByTheSettings) {
    snapshot_.jsonIndentationMode = 3;
    snapshot_.linebreaksMode = 2;
    snapshot_.columnList = {"name", "name", "a\"b"};
    EXPECT_EQ(text(Index::JSON), "[\r\n]");
    add("a\\\"/\n\r\t\x01\x1f\x7f\u2028");
    add("b");
    EXPECT_EQ(text(),
              "[\r\n  {\r\n"
              "    \"name\":\"a\\\\\\\"/\\n\\r\\t\\u0001\\u001f\x7f\u2028\",\r\n"
              "    \"name\":\"a\\\\\\\"/\\n\\r\\t\\u0001\\u001f\x7f\u2028\",\r\n"
              "    \"a\\\"b\":null\r\n  },\r\n  {\r\n"
              "    \"name\":\"b\",\r\n    \"name\":\"b\",\r\n    \"a\\\"b\":null\r\n  }\r\n]");
    snapshot_.jsonIndentationMode = 8;
    snapshot_.columnList = {};
    EXPECT_EQ(text(), "[\r\n{\r\n},\r\n{\r\n}\r\n]");
}

TEST_F(OutputFormats, LaysOutHtmlByTheSettings) {
    snapshot_.columnList = {"name", "R&D"};
    snapshot_.linebreaksMode = 1;
    EXPECT_EQ(text(Index::HTML),
              "<!DOCTYPE html>\r<html>\r\t<head>\r\t\t<title>File List</title>\r"
              "\t\t<meta charset=\"UTF-8\">\r\t</head>\r\t<body>\r"
              "\t\t<table>\r\t\t</table>\r\t</body>\r</html>");
    snapshot_.linebreaksMode = 0;
    snapshot_.htmlIndentationMode = 2;
    snapshot_.htmlColumnIdHeaderMode = 1;
    snapshot_.columnList = {"no&1", "no2"};
    struct Row {
        int headers;
        int classes;
        const char* titles;
        const char* cells;
    };
    for (const Row& row : {
             Row{1, 0, "<th>no&1</th>\n  <th>no2</th>", "<td>a\n</td>\n  <td></td>"},
             Row{7, 7, "<th>no&1</th>\n  <th>no2</th>", "<td>a\n</td>\n  <td></td>"},
             Row{2, 1, "<th id=\"mql_th_1\">no&1</th>\n  <th id=\"mql_th_2\">no2</th>",
                 "<td class =\"mql_td_1\">a\n</td>\n  <td class =\"mql_td_2\"></td>"},
             Row{3, 2, "<th id=\"mql_th_no&1\">no&1</th>\n  <th id=\"mql_th_no2\">no2</th>",
                 "<td class =\"mql_td_name\">a\n</td>\n  <td class =\"mql_td_no2\"></td>"},
         }) {
        list_->files.clear();
        snapshot_.columnList = {"no&1", "no2"};
        snapshot_.htmlColumnIdHeaderMode = row.headers;
        EXPECT_EQ(text(Index::CopyToHTML),
                  "<table>\n <tr>\n  " + std::string(row.titles) + "\n </tr>\n</table>\n");
        add("a\n");
        snapshot_.columnList = {"name", "no2"};
        snapshot_.htmlColumnIdHeaderMode = 0;
        snapshot_.htmlColumnClassMode = row.classes;
        EXPECT_EQ(text(), "<table>\n <tr>\n  " + std::string(row.cells) + "\n </tr>\n</table>\n");
    }
}

TEST_F(OutputFormats, LeavesNoMarkupInHtml) {
    using Row = std::pair<const char*, const char*>;
    snapshot_.columnList = {"name"};
    snapshot_.htmlIndentationMode = 0;
    for (const auto& [name, cell] : {
             Row{"Tom & Jerry's <\"1\">", "Tom &amp; Jerry&#39;s &lt;&quot;1&quot;&gt;"},
             Row{"\u00A2\u00A3\u00A5\u00A9\u20AC\u00AE<",
                 "&cent;&pound;&yen;&copy;&euro;&reg;&lt;"},
             Row{"\u0600<b>\u0338\u00A9", "\u0600&lt;b&gt;\u0338&copy;"},
             Row{"\u00A9\uFE0F \u0600\u00A3 \u20AC\u0301'",
                 "\u00A9\uFE0F \u0600\u00A3 \u20AC\u0301&#39;"},
             Row{"\u00E9e\u0301\u2028&amp;", "\u00E9e\u0301\u2028&amp;amp;"},
         }) {
        list_->files.clear();
        add(name);
        EXPECT_EQ(text(Index::CopyToHTML),
                  "<table>\n<tr>\n<td>" + std::string(cell) + "</td>\n</tr>\n</table>\n");
    }
}

TEST_F(OutputFormats, KnowsWhereAByteComesFrom) {
    add("first");
    add("second\n");
    snapshot_.columnList = {"relative_path", "name"};
    snapshot_.includeColumnTitlesMode = 1;
    snapshot_.htmlColumnIdHeaderMode = 1;
    for (const Index format : {Index::CSV, Index::TSV, Index::JSON, Index::HTML, Index::CopyToHTML,
                               Index::CopyToExcel}) {
        const std::string whole = text(format);
        const auto operation = newOperation();
        const TextPlace place = operation->placeOf(whole.find("econd"));
        EXPECT_EQ(place.row, 1U);
        EXPECT_EQ(place.node, list_->files[1].get());
        EXPECT_EQ(place.columnId, "name");
        if (format == Index::JSON) continue;
        const TextPlace title = operation->placeOf(whole.find("(from source"));
        EXPECT_FALSE(title.row);
        EXPECT_EQ(title.columnId, "relative_path");
    }
}

TEST_F(OutputFormats, CancelledInTimeTellsNobody) {
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

TEST_F(OutputFormats, SupersededItHasNoFileRead) {
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
