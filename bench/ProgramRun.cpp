// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProgramRun.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstdlib>
#include <string>
#include <system_error>

namespace marquell::bench {

double millisecondsSince(Clock::time_point begin) {
    return Milliseconds(Clock::now() - begin).count();
}

Folder::Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "marquell-XXXXXX").string();
    path = ::mkdtemp(pattern.data());
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

Program::Program() {
    platform::MainQueue::install(&mainQueue);
    delegate.emplace();
    delegate->finishLaunching();
}

Program::~Program() {
    delegate.reset();
    platform::MainQueue::install(nullptr);
}

void runEventsUntil(const std::function<bool()>& isDone) {
    QTimer heart;
    heart.start(10);
    while (!isDone()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void runEventsFor(std::chrono::milliseconds time) {
    const auto end = Clock::now() + time;
    runEventsUntil([end] { return Clock::now() >= end; });
}

}  // namespace marquell::bench
