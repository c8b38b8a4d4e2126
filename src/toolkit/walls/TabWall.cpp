// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/walls/TabWall.h"

#include <QEvent>
#include <QLayout>

#include "toolkit/bricks/BricksFactory.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {

TabWall::TabWall(QWidget* parent) : QStackedWidget(parent) {}

TabWall::~TabWall() {
    // The pages go after the dictionary.
    for (const auto& [wall, page] : contentWallToTabViewItemDict_) {
        disconnect(wall, nullptr, this, nullptr);
    }
}

Wall* TabWall::createNewWall() {
    auto* page = new QWidget(this);
    LayoutRoot::install(page);
    page->installEventFilter(this);

    auto* wall = new Wall;
    addSubview(page, wall);
    LayoutConstraintMaker make(wall);
    make.fillContainer();
    addConstraints(page, make.constraints);

    contentWallToTabViewItemDict_.emplace(wall, page);
    connect(wall, &QObject::destroyed, this,
            [this, wall] { contentWallToTabViewItemDict_.erase(wall); });
    addWidget(page);
    return wall;
}

void TabWall::switchToWall(const Wall* wall) {
    const auto item = contentWallToTabViewItemDict_.find(wall);
    if (item != contentWallToTabViewItemDict_.end()) setCurrentWidget(item->second);
}

bool TabWall::isCurrentWall(const Wall* wall) const {
    const auto item = contentWallToTabViewItemDict_.find(wall);
    return item != contentWallToTabViewItemDict_.end() && item->second == currentWidget();
}

QSize TabWall::minimumContentSize() const { return minimumSizeHint(); }

bool TabWall::eventFilter(QObject* watched, QEvent* event) {
    // Qt passes on what a page in sight needs; those behind it count here as well.
    const auto* page = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::LayoutRequest && page != nullptr && page->isHidden()) {
        layout()->invalidate();
        updateGeometry();
    }
    return QStackedWidget::eventFilter(watched, event);
}

}  // namespace marquell::toolkit
