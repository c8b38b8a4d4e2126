// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStackedWidget>
#include <unordered_map>

#include "toolkit/layout/ViewMeasures.h"

namespace marquell::toolkit {

class Wall;

/// Walls one behind the other, of which one is visible: at first the one made first. Never smaller
/// than the largest of them needs, so that switching moves nothing around it.
class TabWall : public QStackedWidget, public MinimumProviding {
public:
    explicit TabWall(QWidget* parent = nullptr);
    ~TabWall() override;

    /// A wall on a page of its own behind the others. Pages count in the order of their making.
    Wall* createNewWall();

    /// Does nothing for a wall that is not one of these.
    void switchToWall(const Wall* wall);
    bool isCurrentWall(const Wall* wall) const;

    /// The page of each wall.
    const std::unordered_map<const Wall*, QWidget*>& contentWallToTabViewItemDict() const {
        return contentWallToTabViewItemDict_;
    }

    QSize minimumContentSize() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unordered_map<const Wall*, QWidget*> contentWallToTabViewItemDict_;
};

}  // namespace marquell::toolkit
