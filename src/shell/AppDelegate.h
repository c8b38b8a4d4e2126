// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "pipeline/DataModel.h"
#include "pipeline/OutputEngine.h"
#include "shell/DesktopAppearance.h"
#include "shell/DesktopFonts.h"
#include "shell/MacOSVersion.h"
#include "shell/QtPasteboard.h"
#include "window/MainWindow.h"

namespace marquell::shell {

/// Owns what lives as long as the program: settings, engine, window. Needs the installed main queue
/// and an application without a window or a style of ours. Main thread only.
class AppDelegate {
public:
    AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;
    /// Stops the engine's work and waits for it.
    ~AppDelegate();

    /// Makes the window and starts the first scan.
    void finishLaunching();

    /// Makes files and folders sources, which were handed over by whoever started the program.
    /// Absolute paths.
    void openFiles(const std::vector<std::string>& paths);

    pipeline::DataModel& dataModel() { return dataModel_; }
    pipeline::OutputEngine& outputEngine() { return outputEngine_; }
    window::MainWindow* mainWindow() const { return mainWindow_.get(); }

private:
    void followDesktop();

    MacOSVersion& macOSVersion_ = MacOSVersion::singleton();
    DesktopAppearance appearance_;
    std::optional<DesktopFonts> fonts_;
    QtPasteboard pasteboard_;
    /// Ends the processes that read files, once nobody starts one any more.
    struct ReadersEnd {
        ReadersEnd() = default;
        ReadersEnd(const ReadersEnd&) = delete;
        ReadersEnd& operator=(const ReadersEnd&) = delete;
        ~ReadersEnd();
    } readersEnd_;
    pipeline::DataModel dataModel_;
    pipeline::OutputEngine outputEngine_;
    std::unique_ptr<window::MainWindow> mainWindow_;
    /// Tells what waits in the main queue that this has gone.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace marquell::shell
