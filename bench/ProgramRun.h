// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>

#include "shell/AppDelegate.h"
#include "shell/QtMainQueue.h"
#include "window/MainContentViewController.h"

namespace marquell::bench {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

double millisecondsSince(Clock::time_point begin);

/// A folder that is gone afterwards.
class Folder {
public:
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();

    std::filesystem::path path;
};

/// The program as a user has it, but with settings of its own.
class Program {
public:
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    pipeline::DataModel& model() { return delegate->dataModel(); }
    pipeline::OutputEngine& engine() { return delegate->outputEngine(); }
    window::MainContentViewController& content() {
        return *delegate->mainWindow()->mainContentViewController();
    }

    shell::QtMainQueue mainQueue;
    std::optional<shell::AppDelegate> delegate;
};

/// Runs the event loop; looks again in time even if no event comes.
void runEventsUntil(const std::function<bool()>& isDone);
void runEventsFor(std::chrono::milliseconds time);

}  // namespace marquell::bench
