// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

#include "shell/MacOSVersionType.h"
#include "shell/Regions.h"

namespace marquell::shell {

/// What a listener's owner holds, and with what it ends.
struct WeakDarkModeListenerFuncReference {
    std::function<void(bool dark)> reference;  // may be empty: then it is skipped
};

/// Facts about the system and its user. Main thread only, but for isDarkMode.
class MacOSVersion {
public:
    using DarkModeListener = std::weak_ptr<const WeakDarkModeListenerFuncReference>;

    explicit MacOSVersion(const QLocale& currentLocale = QLocale::system());
    MacOSVersion(const MacOSVersion&) = delete;
    MacOSVersion& operator=(const MacOSVersion&) = delete;

    static MacOSVersion& singleton();

    const MacOSVersionType currentVersion;
    const QLocale internalCurrentLocale;

    /// Gives the whole program the dark or the light look. Called ahead of the listeners.
    std::function<void(bool dark)> applyLook;

    /// The mode in force, which is the one that is to be seen. Any thread.
    bool isDarkMode() const { return isDarkMode_; }

    /// Puts a mode in force at once and tells nobody: for the time before the first window.
    void setDarkMode(bool dark);

    /// Listeners are called in the order of their registration.
    void addDarkModeChangeListener(DarkModeListener listener);

    /// To be called when the desktop's mode has become another. Half a second later, through the
    /// main queue, the mode that the desktop has by then comes in force: within one task, the look
    /// is applied and the listeners are called.
    void internalDarkModeHasChanged(bool dark);

    // Where the user is, by the region of the locale; all false if it has none.
    bool inGermanSpeakingWorld() const { return isIn(Region::germanSpeakingWorld); }
    bool inUK() const { return isIn(Region::uk); }
    bool inEuropeanUnion() const { return isIn(Region::europeanUnion); }
    bool inUS() const { return isIn(Region::us); }
    bool inCanada() const { return isIn(Region::canada); }
    bool inOceania() const { return isIn(Region::oceania); }
    bool inNorthAmerica() const { return isIn(Region::northAmerica); }
    bool inAllOtherCountries() const { return isIn(Region::allOtherCountries); }
    /// In one of the three groups that are European.
    bool inEurope() const { return inEuropeanUnion() || inGermanSpeakingWorld() || inUK(); }

    /// The folder of the program's settings, with a slash at its end. It need not exist.
    static QString fullPathToPreferencesFolder();

private:
    bool isIn(Region region) const;
    void putDesktopModeInForce();

    std::atomic<bool> isDarkMode_ = false;
    bool desktopIsDark_ = false;
    std::vector<DarkModeListener> darkModeChangeListeners_;
    const std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace marquell::shell
