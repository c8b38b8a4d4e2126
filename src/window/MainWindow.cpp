// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include "window/FileDropTarget.h"
#include "window/MainContentViewController.h"
#include "window/Text.h"
#include "window/WindowFrame.h"

namespace marquell::window {

std::unique_ptr<MainWindow> MainWindow::makeMainWindow(pipeline::DataModel& dataModel,
                                                       pipeline::OutputEngine& outputEngine) {
    std::unique_ptr<MainWindow> window(new MainWindow(
        toolkit::makeController<MainContentViewController>(dataModel, outputEngine)));
    WindowFrame::keep(*window, "mainWindow", QSize(1180, 760), dataModel.defaults);
    window->show();
    window->mainContentViewController()->firstKeyView()->setFocus();
    return window;
}

MainWindow::MainWindow(std::unique_ptr<MainContentViewController> controller)
    : mainContentViewController_(std::move(controller)) {
    setWindowTitle(localizedText("Marquell", "window title"));
    MainContentViewController* content = mainContentViewController_.get();
    setCentralWidget(content->view());
    FileDropTarget::install(
        *content->view(), [content](const auto& paths) { content->addSources(paths); },
        [content](bool areAbove) { content->showFileDrop(areAbove); });
}

MainWindow::~MainWindow() {
    mainContentViewController_->saveInfoPaneState();
    // The views go first: their tables ask the controllers for their cells.
    delete takeCentralWidget();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        mainContentViewController_->setMinimized(isMinimized());
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    QCoreApplication::quit();
}

}  // namespace marquell::window
