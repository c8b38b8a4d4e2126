// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "pipeline/OutputEngine.h"
#include "platform/MainQueue.h"

namespace marquell::bench {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Settings of its own, in a folder that is gone afterwards, and a hand-driven main queue.
class Surroundings {
public:
    Surroundings() {
        std::string pattern = (std::filesystem::temp_directory_path() / "marquell-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        platform::MainQueue::install(&mainQueue);
        defaults = platform::UserDefaults::open(folder / "settings.json", [](const auto&) {});
        model = std::make_unique<pipeline::DataModel>(defaults);
    }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;
    ~Surroundings() {
        model.reset();
        defaults.reset();
        platform::MainQueue::install(nullptr);
        std::filesystem::remove_all(folder);
    }

    std::filesystem::path folder;
    platform::PumpedMainQueue mainQueue;
    std::shared_ptr<platform::UserDefaults> defaults;
    std::unique_ptr<pipeline::DataModel> model;
};

/// One write of a setting that ten listeners hear of, saves in the background included.
void settingWrite(benchmark::State& state) {
    Surroundings surroundings;
    auto& variable = *surroundings.model->encodingMode;
    int heard = 0;
    for (int i = 0; i < 10; ++i) variable.addColdListener([&heard](int) { ++heard; });
    int value = 0;
    for (auto _ : state) variable.setValue(++value % 1000);
    benchmark::DoNotOptimize(heard);
}
BENCHMARK(settingWrite)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// An engine over 100,000 files with all their values stored.
class EngineOverManyFiles : public pipeline::OutputEngineDisplay {
public:
    EngineOverManyFiles() {
        for (int folder = 0; folder < 100; ++folder) {
            const auto path = here_.folder / "files" / std::to_string(folder);
            std::filesystem::create_directories(path);
            for (int file = 0; file < 1000; ++file) {
                std::ofstream(path / ("IMG_" + std::to_string(file * 7919 % 10000) + ".jpg"));
            }
        }
        model().processSubFolders->setValue(true);
        model().columnList.insertAtRow(2, {"size_in_bytes", "creation_date", "modification_date"});
        model().sourceList.add({(here_.folder / "files").string()}, false);
        engine_ = std::make_unique<pipeline::OutputEngine>(model(), pasteboard_);
        engine_->setDisplay(this);
        engine_->startListening();
        runToRest();
    }

    pipeline::DataModel& model() { return *here_.model; }
    pipeline::OutputEngine& engine() { return *engine_; }
    const std::filesystem::path& folder() const { return here_.folder; }

    /// `each` is called all the time until the last text shows.
    void runToRest(const std::function<void()>& each = &std::this_thread::yield) {
        do {
            here_.mainQueue.drain();
            each();
        } while (!maySave_);
    }

    void showWaitingText(const std::string&) override { maySave_ = false; }
    void showText(std::shared_ptr<const platform::LinedText>, bool maySave) override {
        maySave_ = maySave;
    }
    void setMaySave(bool maySave) override { maySave_ = maySave; }
    std::optional<std::string> showSaveDialog(const pipeline::SaveOffer&) override {
        return destination;
    }
    void updateTable(std::shared_ptr<const pipeline::FlatFileList>) override {}

    std::optional<std::string> destination;  ///< what the user answers to the save dialog

private:
    Surroundings here_;
    platform::MemoryPasteboard pasteboard_;
    std::unique_ptr<pipeline::OutputEngine> engine_;
    bool maySave_ = false;
};

/// Option changes in a row until the last text shows.
void optionChanges(benchmark::State& state) {
    EngineOverManyFiles files;
    int value = 0;
    for (auto _ : state) {
        for (auto i = state.range(0); i > 0; --i) {
            files.model().nullValuesMode->setValue(++value % 5);
        }
        files.runToRest();
    }
}
BENCHMARK(optionChanges)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A text of 100 MB made, shown and saved; and the longest that it kept the main thread, in
/// milliseconds.
void largeTextSaved(benchmark::State& state) {
    EngineOverManyFiles files;
    files.model().columnList.insertAtRow(0, std::vector<std::string>(24, "absolute_path"));
    files.destination = files.folder() / "list.csv";
    double longest = 0;
    int value = 0;
    for (auto _ : state) {
        auto begin = Clock::now();
        const auto look = [&] {
            longest = std::max(longest, secondsSince(begin) * 1e3);
            std::this_thread::yield();
            begin = Clock::now();
        };
        files.model().nullValuesMode->setValue(++value % 5);
        files.runToRest(look);
        files.engine().performCommitAction();
        look();
        files.runToRest(look);
    }
    const auto text = files.engine().currentOutputString();
    state.counters["bytes"] = static_cast<double>(text->size());
    state.counters["longest"] = longest;
}
BENCHMARK(largeTextSaved)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What a status line waits for its progress while scans, re-sorts and outputs run, in
/// microseconds; the time is that of all the stages.
void viewModelRead(benchmark::State& state) {
    EngineOverManyFiles files;
    std::vector<double> waits;
    int round = 0;
    for (auto _ : state) {
        files.model().processFolders->setValue(++round % 2 == 0);
        files.model().firstSortMode->setValue(round % 4);
        files.model().nullValuesMode->setValue(round % 5);
        files.runToRest([&] {
            const auto begin = Clock::now();
            benchmark::DoNotOptimize(files.engine().createOutputEngineViewModel());
            waits.push_back(secondsSince(begin) * 1e6);
        });
    }
    std::sort(waits.begin(), waits.end());
    state.counters["median"] = waits[waits.size() / 2];
    state.counters["p99"] = waits[waits.size() * 99 / 100];
    state.counters["max"] = waits.back();
    state.counters["reads"] = static_cast<double>(waits.size());
}
BENCHMARK(viewModelRead)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace marquell::bench
