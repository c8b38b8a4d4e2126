// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SmartMenuItem.h"

#include <QMenu>
#include <utility>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {

SmartMenuItem::SmartMenuItem(const QString& title, std::function<void()> actionFunction,
                             QObject* parent)
    : QAction(titleText(title), parent), actionFunc(std::move(actionFunction)) {
    connect(this, &QAction::triggered, this, [this] { callIfSet(actionFunc); });
}

void SmartMenuItem::setTitle(const QString& title) { setText(titleText(title)); }

QString SmartMenuItem::title() const { return textOfTitle(text()); }

void SmartMenuItem::setSubtitle(const QString& subtitle) {
    if (subtitle == subtitle_) return;
    subtitle_ = subtitle;
    Q_EMIT changed();
}

bool SmartMenuItem::validateMenuItem() {
    return !traditionalValidateFunc || traditionalValidateFunc(*this);
}

void SmartMenuItem::prepareForDisplay() {
    if (updateBeforeDisplayFunc) updateBeforeDisplayFunc(*this);
    if (traditionalValidateFunc) setEnabled(validateMenuItem());
}

void updateBeforeDisplay(const QMenu& menu) {
    const QList<QAction*> items = menu.actions();
    for (QAction* item : items) {
        if (item->isSeparator()) continue;
        if (auto* smart = dynamic_cast<SmartMenuItem*>(item)) smart->prepareForDisplay();
        if (item->menu() != nullptr) updateBeforeDisplay(*item->menu());
    }
}

void keepUpdated(QMenu* menu, std::function<void()> willOpen) {
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, willOpen = std::move(willOpen)] {
        if (willOpen) willOpen();
        updateBeforeDisplay(*menu);
    });
}

}  // namespace marquell::toolkit
