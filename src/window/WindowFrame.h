// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <string>

#include "platform/UserDefaults.h"

class QWidget;

namespace marquell::window {

/// Keeps place and size of a window in the settings: written half a second after they changed, and
/// when the window closes. It lives as long as the window.
class WindowFrame : public QObject {
public:
    /// Puts the window where the settings have it, else into the middle of the screen in
    /// `firstSize` points, of which it takes no more than there is comfortable room for.
    static void keep(QWidget& window, const std::string& name, const QSize& firstSize,
                     std::shared_ptr<platform::UserDefaults> defaults);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowFrame(QWidget& window, std::string key, std::shared_ptr<platform::UserDefaults> defaults);

    bool restore();
    void placeFirst(const QSize& firstSize);
    void write();

    QWidget& window_;
    const std::string key_;
    const std::shared_ptr<platform::UserDefaults> defaults_;
    QTimer writing_;
};

}  // namespace marquell::window
