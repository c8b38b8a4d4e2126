// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "metadata/MetadataStorage.h"
#include "pipeline/OutputEngine.h"
#include "platform/MainQueue.h"
#include "platform/Surroundings.h"

namespace marquell::tests {

/// Notes what an engine asks its display to show.
class RecordingDisplay : public pipeline::OutputEngineDisplay {
public:
    void showWaitingText(const std::string& waitingText) override {
        EXPECT_EQ(waitingText, "Waiting for text output engine to finish processing...");
        isWaiting = true;
        maySave = false;
        events.emplace_back("waiting");
    }
    void showText(std::shared_ptr<const platform::LinedText> newText, bool isLast) override {
        isWaiting = false;
        text = std::string(newText->text());
        maySave = isLast;
        events.emplace_back("text");
    }
    void setMaySave(bool newMaySave) override {
        EXPECT_FALSE(isWaiting && newMaySave);
        maySave = newMaySave;
    }
    std::optional<std::string> showSaveDialog(const pipeline::SaveOffer& newOffer) override {
        ++dialogs;
        offer = newOffer;
        const auto answer = destination;
        if (const auto during = duringDialog) during();  // may destroy this display
        return answer;
    }
    void updateTable(std::shared_ptr<const pipeline::FlatFileList> flatFileList) override {
        const bool isNew = list == nullptr || list->files.empty() || flatFileList->files.empty() ||
                           flatFileList->files.front() != list->files.front();
        events.emplace_back(isNew ? "other table" : "table");
        list = std::move(flatFileList);
    }

    bool isWaiting = false;
    bool maySave = false;
    std::string text;
    std::shared_ptr<const pipeline::FlatFileList> list;
    std::optional<std::string> destination;  ///< what the user answers to the save dialog
    std::function<void()> duringDialog;
    int dialogs = 0;
    pipeline::SaveOffer offer;  ///< of the last dialog
    std::vector<std::string> events;
};

/// An engine over settings of its own, with the main queue in the hands of the test.
class EngineFixture : public testing::Test {
protected:
    EngineFixture() {
        platform::MainQueue::install(&mainQueue);
        metadata::MetadataStorage::shared().clear();
    }
    ~EngineFixture() override {
        engine.reset();
        model.reset();
        defaults.reset();
        mainQueue.drain();
        metadata::MetadataStorage::shared().clear();
        platform::MainQueue::install(nullptr);
    }

    void startEngine() {
        engine = std::make_unique<pipeline::OutputEngine>(*model, pasteboard);
        engine->setDisplay(&display);
        engine->startListening();
    }

    /// Runs the main queue's tasks until `condition` holds.
    void pumpUntil(const std::function<bool()>& condition) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (mainQueue.drain() > 0 || !condition()) {
            ASSERT_LT(std::chrono::steady_clock::now(), deadline);
            std::this_thread::yield();
        }
    }
    /// Until all is done that the changes so far have led to.
    void settle() {
        pumpUntil([this] { return display.maySave; });
    }

    std::string currentText() const { return std::string(engine->currentOutputString()->view()); }

    platform::PumpedMainQueue mainQueue;
    TemporaryFolder config;
    TemporaryFolder root;
    platform::MemoryPasteboard pasteboard;
    std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::open(
        config / "settings.json", [](const std::string& problem) { FAIL() << problem; });
    std::unique_ptr<pipeline::DataModel> model = std::make_unique<pipeline::DataModel>(defaults);
    RecordingDisplay display;
    std::unique_ptr<pipeline::OutputEngine> engine;
};

}  // namespace marquell::tests
