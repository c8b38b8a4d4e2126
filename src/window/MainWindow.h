// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <memory>

#include "pipeline/DataModel.h"
#include "pipeline/OutputEngine.h"

namespace marquell::window {

class MainContentViewController;

/// The window of the program. Closing it ends the program.
class MainWindow : public QMainWindow {
public:
    /// Makes the window and shows it, in the frame that it had last. Model and engine have to
    /// outlive it.
    static std::unique_ptr<MainWindow> makeMainWindow(pipeline::DataModel& dataModel,
                                                      pipeline::OutputEngine& outputEngine);
    ~MainWindow() override;

    MainContentViewController* mainContentViewController() const {
        return mainContentViewController_.get();
    }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    explicit MainWindow(std::unique_ptr<MainContentViewController> controller);

    std::unique_ptr<MainContentViewController> mainContentViewController_;
};

}  // namespace marquell::window
