// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DesktopAppearance.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMetaType>
#include <QPalette>
#include <QTimer>
#include <QVariant>

#include "shell/MacOSVersion.h"
#include "toolkit/look/Surface.h"

namespace marquell::shell {
namespace {

bool applicationPaletteIsDark() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

}  // namespace

DesktopAppearance::DesktopAppearance(MacOSVersion& version, const QDBusConnection& bus)
    : version_(version),
      paletteIsDark_(applicationPaletteIsDark()),
      told_(paletteIsDark_),
      portal_(bus) {
    version_.setDarkMode(told_);
    QCoreApplication::instance()->installEventFilter(this);
    portal_.observe(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                    [this](const QVariant& colorScheme) { takeSetting(colorScheme); });
}

void DesktopAppearance::waitForAnswer(std::chrono::milliseconds atMost) {
    if (!answered_) {
        QEventLoop loop;
        QTimer::singleShot(atMost, &loop, &QEventLoop::quit);
        endWait_ = [&loop] { loop.quit(); };
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        endWait_ = nullptr;
    }
    windowsMayExist_ = true;
}

void DesktopAppearance::takeSetting(const QVariant& colorScheme) {
    constexpr unsigned int dark = 1;
    constexpr unsigned int light = 2;
    answered_ = true;
    if (endWait_) endWait_();
    if (colorScheme.typeId() != QMetaType::UInt) return;
    const unsigned int scheme = colorScheme.toUInt();
    portalSaysDark_ =
        scheme == dark || scheme == light ? std::optional(scheme == dark) : std::nullopt;
    tellIfChanged();
}

bool DesktopAppearance::eventFilter(QObject* watched, QEvent* event) {
    // The look of the program is a palette as well, which says nothing of the desktop.
    if (event->type() == QEvent::ApplicationPaletteChange &&
        watched == QCoreApplication::instance() && !portalSaysDark_ &&
        QGuiApplication::palette() != toolkit::paletteOf(toolkit::systemSurface())) {
        paletteIsDark_ = applicationPaletteIsDark();
        tellIfChanged();
    }
    return false;
}

void DesktopAppearance::tellIfChanged() {
    const bool dark = portalSaysDark_.value_or(paletteIsDark_);
    if (dark == told_) return;
    told_ = dark;
    if (windowsMayExist_) {
        version_.internalDarkModeHasChanged(dark);
    } else {
        version_.setDarkMode(dark);
    }
}

}  // namespace marquell::shell
