// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <chrono>
#include <functional>
#include <optional>

#include "shell/SettingsPortal.h"

class QVariant;

namespace marquell::shell {

class MacOSVersion;

/// Tells MacOSVersion, which has to outlive it, whether the desktop is dark. The settings portal
/// decides; while that has no opinion, the application's palette does. Main thread only.
class DesktopAppearance : public QObject {
public:
    /// To be made before the program changes the application's palette, and early: it asks the
    /// portal here. Until there is an answer the palette's mode is in force.
    DesktopAppearance(MacOSVersion& version, const QDBusConnection& bus);

    /// Runs the event loop, without the user's input, until the portal has answered or the time is
    /// up. What was learnt by then is in force when this returns; all later news are changes. To be
    /// called before the first window is made.
    void waitForAnswer(std::chrono::milliseconds atMost);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeSetting(const QVariant& colorScheme);
    void tellIfChanged();

    MacOSVersion& version_;
    bool paletteIsDark_;
    std::optional<bool> portalSaysDark_;  // nothing while it has no opinion
    bool answered_ = false;
    bool windowsMayExist_ = false;
    bool told_;  // what version_ was told last
    std::function<void()> endWait_;
    SettingsPortal portal_;  // last: its observer uses all the others
};

}  // namespace marquell::shell
