// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MacOSVersion.h"

#include <QLoggingCategory>
#include <QOperatingSystemVersion>
#include <chrono>
#include <string>
#include <utility>

#include "platform/DiagnosticText.h"
#include "platform/MainQueue.h"
#include "platform/UserFolders.h"

namespace marquell::shell {
namespace {

Q_LOGGING_CATEGORY(systemFacts, "marquell.system", QtInfoMsg)

/// How long a desktop takes to change everything else that belongs to its mode.
constexpr std::chrono::duration<double> changeTime(0.5);

MacOSVersionType runningVersion() {
    const QOperatingSystemVersion system = QOperatingSystemVersion::current();
    return versionType(system.majorVersion(), system.minorVersion());
}

}  // namespace

MacOSVersion::MacOSVersion(const QLocale& currentLocale)
    : currentVersion(runningVersion()), internalCurrentLocale(currentLocale) {}

MacOSVersion& MacOSVersion::singleton() {
    static MacOSVersion version;
    return version;
}

void MacOSVersion::setDarkMode(bool dark) {
    desktopIsDark_ = dark;
    isDarkMode_ = dark;
}

void MacOSVersion::addDarkModeChangeListener(DarkModeListener listener) {
    darkModeChangeListeners_.push_back(std::move(listener));
}

void MacOSVersion::internalDarkModeHasChanged(bool dark) {
    desktopIsDark_ = dark;
    platform::MainQueue* queue = platform::MainQueue::installed();
    if (queue == nullptr) return;
    queue->postAfter(changeTime, [this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) putDesktopModeInForce();
    });
}

void MacOSVersion::putDesktopModeInForce() {
    const bool dark = desktopIsDark_;
    isDarkMode_ = dark;
    if (applyLook) applyLook(dark);
    std::erase_if(darkModeChangeListeners_, [](const auto& each) { return each.expired(); });
    const auto listeners = darkModeChangeListeners_;  // a listener may add others
    for (const DarkModeListener& each : listeners) {
        const auto listener = each.lock();
        if (listener != nullptr && listener->reference) listener->reference(dark);
    }
}

bool MacOSVersion::isIn(Region region) const {
    return isInRegion(region,
                      QLocale::territoryToCode(internalCurrentLocale.territory()).toStdString());
}

QString MacOSVersion::fullPathToPreferencesFolder() {
    const auto log = [](const char* stage, const std::string& path) {
        qCDebug(systemFacts, "%s: %s", stage, platform::diagnosticText(path).c_str());
    };
    const std::string library = platform::configurationFolder();
    log("library folder path", library);
    // The folder is nobody else's: no part of the path needs to be taken off.
    log("library folder path after processing", library);
    const std::string preferences = library + "/marquell/";
    log("preferences folder", preferences);
    return QString::fromStdString(preferences);
}

}  // namespace marquell::shell
