// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DesktopFonts.h"

#include <QGuiApplication>
#include <QMetaType>
#include <QStringList>
#include <QVariant>
#include <utility>

#include "shell/FontDescription.h"

namespace marquell::shell {
namespace {

constexpr double smallestScale = 0.25;
constexpr double largestScale = 8;

const QString space = QStringLiteral("org.gnome.desktop.interface");

/// On X11 the desktop raises the resolution of the screen by the factor, and Qt scales by that.
bool pointsAreScaled() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

/// The platform themes of these desktops tell Qt their fonts; a portal may know others' only.
bool qtKnowsTheFonts() {
    const QString desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    const QStringList names = desktops.split(QLatin1Char(':'));
    return names.contains(QLatin1String("KDE")) || names.contains(QLatin1String("LXQt"));
}

}  // namespace

DesktopFonts::DesktopFonts(const QDBusConnection& bus, std::function<void()> changed)
    : changed_(std::move(changed)), portal_(bus) {
    if (qtKnowsTheFonts()) return;
    observeFont(QStringLiteral("font-name"), interfaceFont_, QFont::AnyStyle);
    observeFont(QStringLiteral("monospace-font-name"), monospaceFont_, QFont::Monospace);
    if (pointsAreScaled()) return;
    portal_.observe(space, QStringLiteral("text-scaling-factor"),
                    [this](const QVariant& factor) { takeScale(factor); });
}

void DesktopFonts::observeFont(const QString& key, std::optional<QFont>& font,
                               QFont::StyleHint hint) {
    portal_.observe(space, key, [this, &font, hint](const QVariant& description) {
        if (description.typeId() != QMetaType::QString) return;
        std::optional<QFont> chosen = fontFromDescription(description.toString());
        if (!chosen) return;
        chosen->setStyleHint(hint);
        if (chosen == font) return;
        font = std::move(chosen);
        changed_();
    });
}

void DesktopFonts::takeScale(const QVariant& factor) {
    if (factor.typeId() != QMetaType::Double) return;
    const double scale = factor.toDouble();
    if (!(scale >= smallestScale && scale <= largestScale) || scale == scale_) return;
    scale_ = scale;
    changed_();
}

std::optional<QFont> DesktopFonts::scaled(std::optional<QFont> font) const {
    if (font) font->setPointSizeF(font->pointSizeF() * scale_);
    return font;
}

}  // namespace marquell::shell
