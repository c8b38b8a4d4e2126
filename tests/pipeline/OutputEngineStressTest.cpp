// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "pipeline/EngineFixture.h"
#include "pipeline/SortKeys.h"
#include "platform/Workers.h"

namespace marquell::pipeline {
namespace {

/// Takes the results of stages that a test runs by itself.
class DirectRun : public StageOwner {
public:
    void scanOperationFinished(ScannerOperation& operation) override {
        list = operation.flatFileList();
    }
    void reSortOperationFinished(ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(formats::OutputFormatOperationType& operation) override {
        text = std::string(operation.outputString()->view());
    }
    std::shared_ptr<const FlatFileList> list;
    std::string text;
};

/// Changes settings at random while stages and extractions run, and looks at what the engine shows.
class OutputEngineStress : public tests::EngineFixture {
protected:
    static constexpr int folders = 4;

    OutputEngineStress() {
        platform::setWorkerCount(3);
        for (int i = 0; i < folders; ++i) {
            const std::string folder = root / std::to_string(i);
            std::filesystem::create_directories(folder + "/sub");
            for (int file = 0; file < 40 * i; ++file) {
                const std::string name = (file % 3 == 0 ? "/sub/F" : "/f") + std::to_string(file);
                tests::writeFile(folder + name,
                                 std::string(static_cast<std::size_t>(file % 7), 'x'));
            }
        }
    }
    ~OutputEngineStress() override { platform::setWorkerCount(workers_); }

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random); }

    void changeSources() {
        std::vector<std::string> sources;
        for (int i = below(4); i > 0; --i)
            sources.push_back(root / std::to_string(below(folders + 1)));
        defaults->setObject(sources, "Sources");
    }
    void changeColumns() {
        static const std::vector<std::string> ids = {
            "name", "absolute_path", "size_in_bytes", "modification_date", "extension", "unknown"};
        switch (below(4)) {
            case 0:
                model->columnList.add(ids[static_cast<std::size_t>(below(6))]);
                break;
            case 1:
                model->columnList.insertAtRow(0, {ids[static_cast<std::size_t>(below(6))]});
                break;
            case 2:
                model->columnList.move({0}, static_cast<std::size_t>(below(4)));
                break;
            default:
                model->columnList.deleteAt({static_cast<std::size_t>(below(5)), 5, 6, 7});
        }
    }
    /// What the interface does beside changing settings.
    void disturb() {
        if (below(2) == 0) metadata::MetadataStorage::shared().clear();
        if (display.list == nullptr) return;
        for (const auto& node : display.list->files) {
            if (below(5) == 0) node->getDisplayString("size_in_bytes");
        }
    }

    /// Saves over what was saved before, if the engine does so now.
    void save() {
        display.destination = config / "list";
        const bool isForFiles = model->outputFormat->value() == OutputFormatIndexEnum::CSV;
        if (engine->maySave() && isForFiles) saved = currentText();
        engine->performCommitAction();
    }

    void changeAnything() {
        const auto sortModes = {0, 1, 2, 3, 6, 7, 10, 11, 12, 15, 99};
        const auto sortMode = [&] { return *(sortModes.begin() + below(11)); };
        switch (below(15)) {
            case 0:
            case 1:
                return changeSources();
            case 2:
            case 3:
                return changeColumns();
            case 4:
                return model->firstSortMode->setValue(sortMode());
            case 5:
                return model->secondSortMode->setValue(sortMode());
            case 6:
                return model->processSubFolders->setValue(below(4) != 0);
            case 7:
                return model->processFiles->setValue(below(4) != 0);
            case 8:
                return model->outputFormat->setValue(below(2) == 0
                                                         ? OutputFormatIndexEnum::CSV
                                                         : OutputFormatIndexEnum::CopyToExcel);
            case 9:
                return disturb();
            case 10:
                return save();
            default:
                return defaults->setObject(below(3),
                                           optionKeys_[static_cast<std::size_t>(below(4))]);
        }
    }

    /// What must hold at any moment of the main thread.
    void lookAtDisplay() {
        const auto viewModel = engine->createOutputEngineViewModel();
        if (viewModel.activeStage == OutputOperationTypeEnum::ready || display.maySave) {
            EXPECT_FALSE(display.isWaiting);
        }
        // Between two tasks of the main queue a change may have come that it doesn't know of yet.
        if (mainQueue.drain() == 0 && display.maySave) {
            EXPECT_EQ(engine->createOutputEngineViewModel().activeStage,
                      OutputOperationTypeEnum::ready);
            compareWithDirectRun();
            EXPECT_EQ(tests::contentOf(config / "list"), saved);
        }
    }

    void compareWithDirectRun() {
        const auto snapshot = std::make_shared<DataModelSnapshot>(model->createSnapshot());
        DirectRun direct;
        ScannerOperation(direct, snapshot).main();
        const auto& shown = display.list->files;
        EXPECT_EQ(sortedPaths(direct.list->files), sortedPaths(shown));
        EXPECT_EQ(keys(direct.list->files, *snapshot), keys(shown, *snapshot));
        formats::outputFormat(snapshot->outputFormat)
            .getOutputOperation(snapshot, direct, display.list)
            ->main();
        EXPECT_EQ(currentText(), direct.text);
        const bool isDiscreet = snapshot->outputFormat == OutputFormatIndexEnum::CopyToExcel;
        EXPECT_EQ(display.text, isDiscreet ? "Ready." : direct.text);
        ++comparisons;
    }

    std::mt19937 random{20240309};
    int comparisons = 0;
    std::string saved;

private:
    using Files = std::vector<std::shared_ptr<Node>>;

    static std::multiset<std::string_view> sortedPaths(const Files& files) {
        std::multiset<std::string_view> paths;
        for (const auto& node : files) paths.insert(node->absolutePath());
        return paths;
    }
    /// What the order of a list follows, item by item: equal for lists that differ in ties only.
    static std::vector<std::string> keys(const Files& files, const DataModelSnapshot& snapshot) {
        const SortKeyMaker first(snapshot.firstSortMode);
        const SortKeyMaker second(snapshot.secondSortMode);
        std::vector<std::string> all;
        if (!first.isKnown()) return all;
        for (const auto& node : files) {
            all.push_back(first.key(*node));
            if (second.isKnown()) all.back() += second.key(*node);
        }
        return all;
    }

    const std::vector<std::string> optionKeys_ = {"quoteStrings", "nullValuesMode",
                                                  "linebreaksMode", "includeColumnTitlesMode"};
    const unsigned workers_ = platform::workerCount();
};

TEST_F(OutputEngineStress, AtRestListAndTextAreThoseOfTheSettings) {
    startEngine();
    for (int step = 0; step < 4000; ++step) {
        changeAnything();
        if (below(3) == 0) lookAtDisplay();
        if (below(20) != 0) continue;
        mainQueue.drain();
        settle();
        lookAtDisplay();
        if (HasFailure()) FAIL() << "in step " << step;
    }
    EXPECT_GT(comparisons, 150);
}

TEST_F(OutputEngineStress, TheEngineMayEndAtAnyMoment) {
    for (int round = 0; round < 100; ++round) {
        startEngine();
        for (int step = below(12); step > 0; --step) {
            changeAnything();
            if (below(3) == 0) mainQueue.drain();
        }
        engine.reset();
        EXPECT_EQ(tests::contentOf(config / "list"), saved);
        display = tests::RecordingDisplay();
        defaults->setObject(round, "nullValuesMode");
        mainQueue.drain();
        EXPECT_TRUE(display.events.empty());
    }
}

}  // namespace
}  // namespace marquell::pipeline
