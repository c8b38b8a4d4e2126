// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AppDelegate.h"

#include <QApplication>
#include <QDBusConnection>
#include <QFontDatabase>
#include <chrono>

#include "metadata/FileReaders.h"
#include "platform/MainQueue.h"
#include "toolkit/drawing/Brand.h"
#include "toolkit/look/HouseStyle.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/Surface.h"

namespace marquell::shell {
namespace {

/// How long the start waits for the desktop to say whether it is dark.
constexpr std::chrono::milliseconds patience(50);

}  // namespace

AppDelegate::AppDelegate()
    : appearance_(macOSVersion_, QDBusConnection::sessionBus()),
      dataModel_(platform::UserDefaults::standard()),
      outputEngine_(dataModel_, pasteboard_) {
    toolkit::furnish();
    QApplication::setWindowIcon(toolkit::applicationIcon());
}

AppDelegate::ReadersEnd::~ReadersEnd() { metadata::endFileReaders(); }

AppDelegate::~AppDelegate() = default;

void AppDelegate::finishLaunching() {
    followDesktop();
    mainWindow_ = window::MainWindow::makeMainWindow(dataModel_, outputEngine_);
    outputEngine_.startListening();
}

void AppDelegate::followDesktop() {
    macOSVersion_.applyLook = toolkit::setSystemDark;
    fonts_.emplace(QDBusConnection::sessionBus(), [this] {
        toolkit::setInterfaceFonts(
            fonts_->interfaceFont().value_or(QApplication::font()),
            fonts_->monospaceFont().value_or(QFontDatabase::systemFont(QFontDatabase::FixedFont)));
    });
    appearance_.waitForAnswer(patience);
    toolkit::setSystemDark(macOSVersion_.isDarkMode());
}

void AppDelegate::openFiles(const std::vector<std::string>& paths) {
    platform::MainQueue::installed()->post([this, weak = std::weak_ptr(alive_), paths] {
        if (!weak.expired()) dataModel_.sourceList.add(paths, true);
    });
}

}  // namespace marquell::shell
