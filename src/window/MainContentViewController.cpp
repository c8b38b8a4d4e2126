// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainContentViewController.h"

#include <algorithm>
#include <cmath>

#include "shell/Clock.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/layout/LayoutRoot.h"
#include "window/StatusLine.h"
#include "window/StatusText.h"
#include "window/Text.h"
#include "window/info/InfoPaneViewController.h"
#include "window/info/MarquellSplitView.h"
#include "window/panels/AlertPanel.h"
#include "window/panels/SavePanel.h"
#include "window/panels/SourcePanel.h"
#include "window/preview/TextPreview.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double leastRightWidth = 500;
constexpr double infoPaneHeightAtLeast = 150;  // that is asked for and kept
constexpr std::chrono::duration<double> statusPeriod(0.1);

}  // namespace

MainContentViewController::MainContentViewController(pipeline::DataModel& dataModel,
                                                     pipeline::OutputEngine& outputEngine)
    : dataModel_(dataModel), outputEngine_(outputEngine) {}

MainContentViewController::~MainContentViewController() {
    outputEngine_.setDisplay(nullptr);
    dataModel_.sourceList.showAlert = {};
}

void MainContentViewController::build() {
    auto* contentWall = new Wall;
    contentWall->backgroundDrawingFunc = [contentWall](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, color(ColorRole::window, contentWall));
    };
    LayoutRoot::install(contentWall);
    setView(contentWall);
    buildParameterWall();
    rightSideWall_ = new Wall;
    contentWall->factory().internalAddBrick(rightSideWall_, [this](LayoutConstraintMaker& make) {
        make.minWidth(leastRightWidth);
        make.container().pin(right, right, 0).pin(top, top, 0).pin(bottom, bottom, 0);
        make.andView(parameterWall_).pin(left, right, 0);
    });
    buildParameterStackView();
    buildRightSide();
    dataModel_.sourceList.showAlert = [this](const lists::Alert& alert) {
        showAlertPanel(view()->window(), alert);
    };
    outputEngine_.setDisplay(this);
}

void MainContentViewController::addSource() {
    const std::weak_ptr alive = alive_;
    const std::vector<std::string> paths = runSourcePanel(view()->window());
    if (!alive.expired()) addSources(paths);
}

void MainContentViewController::addSources(const std::vector<std::string>& paths) {
    if (!paths.empty()) dataModel_.sourceList.add(paths, true);
}

void MainContentViewController::clearSources() {
    dataModel_.defaults->setObject(platform::TextList(), dataModel_.sourceList.storageKey);
}

void MainContentViewController::performAction() { outputEngine_.performCommitAction(); }

void MainContentViewController::showFileDrop(bool isShown) {
    sourceListTableViewController_->showDropAtEnd(isShown);
}

void MainContentViewController::toggleInfoPane() {
    splitView_->askForPaneHeight(splitView_->isPaneCollapsed() ? infoPaneHeightAtLeast : 0);
}

void MainContentViewController::saveInfoPaneState() {
    dataModel_.infoPaneIsCollapsed->setValue(splitView_->isPaneCollapsed());
    if (splitView_->isPaneCollapsed()) return;
    dataModel_.infoPaneHeight->setValue(std::max(splitView_->paneHeight(), infoPaneHeightAtLeast));
}

QWidget* MainContentViewController::firstKeyView() const { return addButton_; }

void MainContentViewController::showWaitingText(const std::string& text) {
    textPreview_->showMessage(QString::fromStdString(text));
    setMaySave(false);
}

void MainContentViewController::showText(std::shared_ptr<const platform::LinedText> text,
                                         bool maySave) {
    textPreview_->showText(std::move(text));
    setMaySave(maySave);
}

void MainContentViewController::setMaySave(bool maySave) {
    if (!maySave && saveButton_->hasFocus()) {
        saveButton_->setEnabled(false);
        focusMeanwhile_ = view()->window()->focusWidget();  // which Qt has just chosen
        return;
    }
    saveButton_->setEnabled(maySave);
    // The keyboard comes back, unless the user has gone elsewhere.
    if (!maySave || focusMeanwhile_ == nullptr) return;
    if (focusMeanwhile_->hasFocus()) saveButton_->setFocus(Qt::OtherFocusReason);
    focusMeanwhile_.clear();
}

std::optional<std::string> MainContentViewController::showSaveDialog(
    const pipeline::SaveOffer& offer) {
    return runSavePanel(view()->window(), offer);
}

void MainContentViewController::updateTable(
    std::shared_ptr<const pipeline::FlatFileList> flatFileList) {
    previewTableViewController_->updateAll(std::move(flatFileList));
}

void MainContentViewController::viewDidAppear() {
    isOnScreen_ = true;
    setTimer();
}

void MainContentViewController::viewDidDisappear() {
    isOnScreen_ = false;
    setTimer();
}

void MainContentViewController::setMinimized(bool isMinimized) {
    isMinimized_ = isMinimized;
    setTimer();
}

/// The status line is refreshed as long as there is somebody to read it.
void MainContentViewController::setTimer() {
    const bool isSeen = isOnScreen_ && !isMinimized_;
    if (isSeen == (windowUITimer_ != nullptr)) return;
    if (!isSeen) {
        windowUITimer_.reset();
        return;
    }
    windowUITimer_ =
        shell::SmartTimerWrapper::wrapTimer(statusPeriod, true, [this](QTimer&) { tick(); });
    tick();
}

void MainContentViewController::tick() {
    const auto seconds = static_cast<long long>(std::floor(shell::Clock::now()));
    const int cycle = static_cast<int>((seconds % 4 + 4) % 4);
    statusLine_->setText(
        statusText(outputEngine_.createOutputEngineViewModel(), cycle, QLocale::system()));
}

}  // namespace marquell::window
