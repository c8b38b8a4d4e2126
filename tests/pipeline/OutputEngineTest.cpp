// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <latch>
#include <optional>

#include "pipeline/EngineFixture.h"
#include "pipeline/OutputEngine.h"
#include "platform/ReadFailures.h"

namespace marquell::pipeline {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Events = std::vector<std::string>;

class OutputEngineTest : public tests::EngineFixture {
protected:
    ~OutputEngineTest() override { platform::setReadFailureListener({}); }

    void startWithFiles() {
        for (const char* name : {"b2", "a1", "c3"}) tests::writeFile(root / name, name);
        model->processSubFolders->setValue(true);
        model->sourceList.add({root.path()}, false);
        startEngine();
        settle();
        display.events.clear();
    }

    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& node : display.list->files) all.emplace_back(node->name());
        return all;
    }

    /// Holds the next scan at the given source, which is missing, until release() is called.
    void holdScanAt(const std::string& missing) {
        platform::setReadFailureListener(
            [this, missing](std::string_view path, const std::error_code&) {
                if (path != missing || isHeld_) return;
                isHeld_ = true;
                held.emplace(1);
                reached_.count_down();
                held->wait();
            });
    }
    void waitForScan() { reached_.wait(); }
    void release() { held->count_down(); }

private:
    std::optional<std::latch> held;
    std::latch reached_{1};
    bool isHeld_ = false;
};

TEST_F(OutputEngineTest, AnEmptyListGetsThroughAtLaunch) {
    startEngine();
    EXPECT_EQ(engine->createOutputEngineViewModel().currentNumberOfItems, 0U);
    settle();
    EXPECT_THAT(display.events, ElementsAre("waiting", "waiting", "other table", "text"));
    EXPECT_EQ(display.text, "");
    EXPECT_EQ(engine->createOutputEngineViewModel().activeStage, OutputOperationTypeEnum::ready);
}

TEST_F(OutputEngineTest, EachSettingEntersAtItsStage) {
    const Events scan{"waiting", "waiting", "other table", "text"};
    const Events reSort{"waiting", "waiting", "table", "text"};
    const Events output{"waiting", "text"};
    const Events columns{"table", "waiting", "text"};
    struct Row {
        const char* key;
        platform::DefaultsValue value;
        Events events;
    };
    startWithFiles();
    for (const Row& row : std::vector<Row>{
             {"processFiles", true, scan},
             {"processFolders", false, scan},
             {"prodcessSubfolders", true, scan},
             {"firstSortMode", 12, reSort},
             {"secondSortMode", 6, reSort},
             {"Columns", std::vector<std::string>{"name"}, columns},
             {"outputFormat", 4, output},
             {"quoteStrings", false, output},
             {"includeColumnTitlesMode", 1, output},
             {"boolValuesMode", 1, output},
             {"nullValuesMode", 1, output},
             {"dateFormatMode", 1, output},
             {"multiLineMode", 1, output},
             {"linebreaksMode", 1, output},
             {"htmlIndentationMode", 0, output},
             {"htmlColumnIdHeaderMode", 1, output},
             {"htmlColumnClassMode", 1, output},
             {"jsonIndentationMode", 0, output},
             {"jsonDateFormatMode", 0, output},
             {"encodingMode", 1, {}},
             {"infoPaneHeight", 200.0, {}},
             {"Sources", std::vector<std::string>{root / "c3", root / "a1"}, scan},
         }) {
        defaults->setObject(row.value, row.key);
        mainQueue.drain();
        settle();
        EXPECT_THAT(display.events, row.events) << row.key;
        display.events.clear();
    }
    EXPECT_EQ(display.text, "Ready.") << "as the format of the text wants";
    EXPECT_EQ(currentText(), "\"Name (with file extension)\"\n\"a1\"\n\"c3\"\n");
}

TEST_F(OutputEngineTest, WhatChangesDuringAScanIsInTheResult) {
    startWithFiles();
    holdScanAt(root / "missing");
    model->sourceList.add({root / "missing"}, false);
    model->sourceList.deleteAt({0, 1});
    model->sourceList.add({root / "missing", root / "c3", root / "b2"}, false);
    waitForScan();
    model->firstSortMode->setValue(13);
    model->columnList.deleteAt({1});
    EXPECT_EQ(engine->createOutputEngineViewModel().activeStage, OutputOperationTypeEnum::scanning);
    release();
    settle();
    EXPECT_THAT(names(), ElementsAre("missing", "c3", "b2"));
    EXPECT_EQ(display.text, "\"missing\"\n\"c3\"\n\"b2\"\n");
    EXPECT_EQ(engine->createOutputEngineViewModel().currentNumberOfItems, 3U);
}

TEST_F(OutputEngineTest, OnlyTheNewestScanReports) {
    startWithFiles();
    holdScanAt(root / "missing");
    defaults->setObject(std::vector<std::string>{root / "missing"}, "Sources");
    waitForScan();
    defaults->setObject(std::vector<std::string>{root / "a1"}, "Sources");
    display.events.clear();
    release();
    settle();
    EXPECT_THAT(display.events,
                ElementsAre("waiting", "waiting", "waiting", "other table", "text"));
    EXPECT_THAT(names(), ElementsAre("a1"));
}

TEST_F(OutputEngineTest, SavesWhereTheUserSaysInTheEncodingOfTheMoment) {
    tests::writeFile(root / "a\u0308", "");
    model->sourceList.add({root / "a\u0308"}, false);
    model->columnList.deleteAt({1});
    startEngine();
    display.destination = config / "early";
    engine->performCommitAction();
    EXPECT_FALSE(std::filesystem::exists(config / "early")) << "no text yet";
    settle();
    EXPECT_THAT(engine->allowedFileTypes(), ElementsAre("csv", "text"));
    EXPECT_EQ(engine->currentOutputFormat().actionButtonTitle(), "Save");
    const auto save = [this](const std::string& path) {
        display.destination = path;
        engine->performCommitAction();
        settle();
        return tests::contentOf(path);
    };
    display.destination.reset();
    engine->performCommitAction();
    EXPECT_TRUE(display.maySave) << "nothing was saved";
    EXPECT_EQ(save(config / "list"), "\"a\u0308\"\n");
    EXPECT_THAT(display.offer.fileTypes, ElementsAre("csv", "text"));
    display.events.clear();
    model->encodingMode->setValue(2);
    mainQueue.drain();
    EXPECT_THAT(display.events, IsEmpty());
    EXPECT_EQ(save(config / "list"), "\"\x8A\"\n");
    EXPECT_EQ(save(config / "no folder/list"), "");
    model->columnList.insertAtRow(1, {"\u4E2D"});
    model->includeColumnTitlesMode->setValue(1);
    mainQueue.drain();
    settle();
    EXPECT_EQ(save(config / "list"), "\"\x8A\"\n") << "the old file stays";
    const auto problem = engine->writeOutputTo(config / "list");
    EXPECT_TRUE(problem && problem->unencodable);
    model->outputFormat->setValue(OutputFormatIndexEnum::HTML);
    settle();
    EXPECT_EQ(save(config / "list"), currentText()) << "HTML is UTF-8 whatever the encoding";
    EXPECT_THAT(pasteboard.types(), IsEmpty());
}

TEST_F(OutputEngineTest, MuchMayHappenWhileTheUserChoosesAFile) {
    model->columnList.deleteAt({0, 1});
    startEngine();
    settle();
    display.destination = config / "list";
    display.duringDialog = [this] {
        engine->performCommitAction();
        model->outputFormat->setValue(OutputFormatIndexEnum::HTML);
        pumpUntil([this] { return display.text != "\n" && display.text == currentText(); });
        EXPECT_FALSE(display.maySave) << "not twice at a time";
    };
    model->includeColumnTitlesMode->setValue(1);
    settle();
    engine->performCommitAction();
    EXPECT_EQ(display.dialogs, 1);
    settle();
    EXPECT_EQ(tests::contentOf(config / "list"), "\n") << "the text of before";
    // The window that asks may be closed, or the program end.
    auto window = std::make_unique<tests::RecordingDisplay>();
    engine->setDisplay(window.get());
    window->destination = config / "other";
    window->duringDialog = [&] {
        engine->setDisplay(nullptr);
        window.reset();
    };
    engine->performCommitAction();
    pumpUntil([this] { return engine->maySave(); });
    EXPECT_EQ(tests::contentOf(config / "other"), currentText());
    engine->setDisplay(&display);
    display.destination = config / "none";
    display.duringDialog = [this] { engine.reset(); };
    engine->performCommitAction();
    EXPECT_EQ(display.dialogs, 2);
    EXPECT_FALSE(std::filesystem::exists(config / "none"));
}

TEST_F(OutputEngineTest, SavesInTheBackground) {
    startWithFiles();
    const std::string saved = currentText();
    const std::string slow = config / "slow";  // a disk that does nothing until it is read
    ASSERT_EQ(::mkfifo(slow.c_str(), 0600), 0);
    display.destination = slow;
    engine->performCommitAction();
    EXPECT_FALSE(display.maySave);
    EXPECT_FALSE(engine->maySave());
    defaults->setObject(std::vector<std::string>{root / "a1"}, "Sources");
    pumpUntil([&] { return display.text == currentText() && display.text != saved; });
    engine->performCommitAction();
    EXPECT_FALSE(display.maySave);
    EXPECT_EQ(display.dialogs, 1) << "one at a time";
    EXPECT_EQ(tests::contentOf(slow), saved);
    settle();
    // The end of the program waits for the file.
    engine->performCommitAction();
    std::string received;
    std::thread reader([&] { received = tests::contentOf(slow); });
    const std::string last = currentText();
    engine.reset();
    reader.join();
    EXPECT_EQ(received, last);
}

TEST_F(OutputEngineTest, TellsWhereTheEncodingLacksACharacter) {
    for (const char* name : {"a", "b\u65E5"}) tests::writeFile(root / name, "");
    model->sourceList.add({root / "a", root / "b\u65E5"}, false);
    model->encodingMode->setValue(1);
    startEngine();
    const auto find = [this] {
        settle();
        std::optional<LackingCharacter> lacking;
        display.duringDialog = [&] {
            std::thread([&] { lacking = display.offer.findLackingCharacter(); }).join();
        };
        engine->performCommitAction();
        display.duringDialog = {};
        return lacking;
    };
    EXPECT_EQ(find(), std::nullopt) << "UTF-16 has all";
    model->encodingMode->setValue(7);
    const auto inCell = find();
    ASSERT_TRUE(inCell);
    EXPECT_EQ(inCell->character, U'\u65E5');
    EXPECT_EQ(inCell->encoding, platform::TextEncoding::isoLatin1);
    EXPECT_EQ(inCell->row, 1U);
    EXPECT_EQ(inCell->columnTitle, "Name (with file extension)");
    model->columnList.insertAtRow(1, {"\u4E2D"});
    model->includeColumnTitlesMode->setValue(1);
    const auto inTitle = find();
    ASSERT_TRUE(inTitle);
    EXPECT_EQ(inTitle->row, std::nullopt);
    EXPECT_EQ(inTitle->columnTitle, "\u4E2D");
    engine->performCommitAction();
    engine.reset();
    const auto later = display.offer.findLackingCharacter();
    ASSERT_TRUE(later) << "also when the engine has gone";
    EXPECT_EQ(later->character, U'\u4E2D');
}

TEST_F(OutputEngineTest, FillsTheClipboardWithWhatTheFormatIsFor) {
    using platform::PasteboardType;
    const auto bothTypes = ElementsAre(PasteboardType::tabularText, PasteboardType::string);
    startEngine();
    model->outputFormat->setValue(OutputFormatIndexEnum::CopyToExcel);
    engine->performCommitAction();
    EXPECT_THAT(pasteboard.types(), IsEmpty()) << "no text yet";
    settle();
    engine->performCommitAction();
    EXPECT_THAT(pasteboard.types(), bothTypes);
    EXPECT_EQ(pasteboard.data(PasteboardType::tabularText), "");
    EXPECT_EQ(pasteboard.data(PasteboardType::string), "");
    model->outputFormat->setValue(OutputFormatIndexEnum::CopyToHTML);
    settle();
    engine->performCommitAction();
    EXPECT_EQ(engine->currentOutputFormat().actionButtonTitle(), "Copy to Clipboard");
    EXPECT_THAT(pasteboard.types(), bothTypes);
    EXPECT_EQ(pasteboard.data(PasteboardType::tabularText), std::nullopt);
    EXPECT_EQ(pasteboard.data(PasteboardType::string), "<table>\n</table>\n");
}

TEST_F(OutputEngineTest, BeforeTheFirstListOnlyScansStart) {
    holdScanAt(root / "missing");
    model->sourceList.add({root / "missing"}, false);
    startEngine();
    waitForScan();
    model->firstSortMode->setValue(1);
    model->quoteStrings->setValue(false);
    mainQueue.drain();
    EXPECT_THAT(display.events, ElementsAre("waiting"));
    EXPECT_FALSE(display.maySave);
    release();
    settle();
    EXPECT_EQ(display.text, "missing," + root / "missing" + "\n");
}

TEST_F(OutputEngineTest, MayGoAwayAtAnyTime) {
    startWithFiles();
    // In the midst of a stage, with changes queued and more to come.
    holdScanAt(root / "missing");
    defaults->setObject(std::vector<std::string>{root / "missing", root.path()}, "Sources");
    waitForScan();
    model->quoteStrings->setValue(false);
    model->firstSortMode->setValue(2);
    release();
    engine.reset();
    display.events.clear();
    defaults->setObject(std::vector<std::string>{}, "Sources");
    model->quoteStrings->setValue(true);
    mainQueue.drain();
    EXPECT_THAT(display.events, IsEmpty());
    // In the midst of a notification.
    startEngine();
    settle();
    model->nullValuesMode->addColdListener([this](int) { engine.reset(); });
    const variables::KVOResponder last("nullValuesMode", defaults, false,
                                       [this](auto&, auto&) { EXPECT_EQ(engine, nullptr); });
    model->nullValuesMode->setValue(1);
    model->sourceList.add({root.path()}, false);
    mainQueue.drain();
}

}  // namespace
}  // namespace marquell::pipeline
