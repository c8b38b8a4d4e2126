// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <functional>

class QMenu;

namespace marquell::toolkit {

/// A menu item with functions. Its title is plain text.
class SmartMenuItem : public QAction {
public:
    explicit SmartMenuItem(const QString& title, std::function<void()> actionFunction = {},
                           QObject* parent = nullptr);

    void setTitle(const QString& title);
    QString title() const;

    /// Shown behind the title, smaller, by popups.
    void setSubtitle(const QString& subtitle);
    const QString& subtitle() const { return subtitle_; }

    /// What traditionalValidateFunc says; true without one.
    bool validateMenuItem();
    /// Runs updateBeforeDisplayFunc; then traditionalValidateFunc, if there is one, decides whether
    /// the item is enabled.
    void prepareForDisplay();

    /// Called when the user chooses the item.
    std::function<void()> actionFunc;
    std::function<void(SmartMenuItem& item)> updateBeforeDisplayFunc;
    std::function<bool(SmartMenuItem& item)> traditionalValidateFunc;
    int tag = 0;

private:
    QString subtitle_;
};

/// Has every item of the menu and its submenus prepare itself for display.
void updateBeforeDisplay(const QMenu& menu);

/// Has that done each time that the menu is about to show, after a call of `willOpen`.
void keepUpdated(QMenu* menu, std::function<void()> willOpen = {});

}  // namespace marquell::toolkit
