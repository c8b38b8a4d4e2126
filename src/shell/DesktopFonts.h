// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QFont>
#include <functional>
#include <optional>

#include "shell/SettingsPortal.h"

class QVariant;

namespace marquell::shell {

/// The fonts that the user chose in GNOME's settings, for a Qt without a platform theme, which
/// doesn't know them; nothing on desktops whose fonts Qt knows. Main thread only.
class DesktopFonts {
public:
    /// Asks for them here. `changed` is called when one has become known and at each change, and
    /// must not end this object.
    DesktopFonts(const QDBusConnection& bus, std::function<void()> changed);

    // In the size that the user's text is scaled to; nothing while unknown.
    std::optional<QFont> interfaceFont() const { return scaled(interfaceFont_); }
    std::optional<QFont> monospaceFont() const { return scaled(monospaceFont_); }

private:
    void observeFont(const QString& key, std::optional<QFont>& font, QFont::StyleHint hint);
    void takeScale(const QVariant& factor);
    std::optional<QFont> scaled(std::optional<QFont> font) const;

    const std::function<void()> changed_;
    std::optional<QFont> interfaceFont_;
    std::optional<QFont> monospaceFont_;
    double scale_ = 1;
    SettingsPortal portal_;  // last: its observers use all the others
};

}  // namespace marquell::shell
