// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SmartMenuItem.h"

#include <QMenu>
#include <QPointer>
#include <utility>
#include <vector>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {

SmartMenuItem::SmartMenuItem(const QString& title, std::function<void()> actionFunction,
                             QObject* parent)
    : QAction(titleText(title), parent), actionFunc(std::move(actionFunction)) {
    connect(this, &QAction::triggered, this, [this] {
        const QPointer<SmartMenuItem> self(this);
        // A shortcut comes without a menu, which would have asked before.
        if (validateMenuItem() && self) callIfSet(actionFunc);
    });
}

void SmartMenuItem::setTitle(const QString& title) { setText(titleText(title)); }

QString SmartMenuItem::title() const { return textOfTitle(text()); }

void SmartMenuItem::setSubtitle(const QString& subtitle) {
    if (subtitle == subtitle_) return;
    subtitle_ = subtitle;
    Q_EMIT changed();
}

bool SmartMenuItem::validateMenuItem() {
    const auto validate = traditionalValidateFunc;  // which may end the item
    return !validate || validate(*this);
}

void SmartMenuItem::prepareForDisplay() {
    const QPointer<SmartMenuItem> self(this);
    callIfSet(updateBeforeDisplayFunc, *this);
    if (!self || !traditionalValidateFunc) return;
    const bool isValid = validateMenuItem();
    if (self) setEnabled(isValid);
}

void updateBeforeDisplay(const QMenu& menu) {
    const QList<QAction*> actions = menu.actions();
    // Each function may end other items, and the menu.
    const std::vector<QPointer<QAction>> items(actions.begin(), actions.end());
    for (const QPointer<QAction>& item : items) {
        if (!item || item->isSeparator()) continue;
        if (auto* smart = dynamic_cast<SmartMenuItem*>(item.data())) smart->prepareForDisplay();
        if (item && item->menu() != nullptr) updateBeforeDisplay(*item->menu());
    }
}

void keepUpdated(QMenu* menu, std::function<void()> willOpen) {
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, willOpen = std::move(willOpen)] {
        const QPointer<QMenu> self(menu);
        callIfSet(willOpen);
        if (self) updateBeforeDisplay(*menu);
    });
}

}  // namespace marquell::toolkit
