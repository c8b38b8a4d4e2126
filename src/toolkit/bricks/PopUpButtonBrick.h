// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "toolkit/bricks/ListBrick.h"
#include "toolkit/bricks/TwoPartText.h"
#include "toolkit/bricks/UserListeners.h"

namespace marquell::toolkit {

class SmartMenuItem;

/// A button that shows the chosen one of its items and opens the list of them. A separator has an
/// index like any item but cannot be chosen; -1 is no item. The user's choice calls the item's
/// actionFunc, the program's does not.
class PopUpButtonBrick : public ListBrick, public UserListeners<int> {
public:
    explicit PopUpButtonBrick(QWidget* parent = nullptr);
    ~PopUpButtonBrick() override;

    /// Adds at the end. The popup owns the item from then on; one that is deleted leaves the list,
    /// one that is not visible is not offered. The first item is selected at once.
    SmartMenuItem* addItem(SmartMenuItem* item);
    SmartMenuItem* addItem(const QString& title, const QString& subtitle = {});
    void addSeparator();
    void removeAllItems();

    /// Null for a separator, and where there is no item.
    SmartMenuItem* itemAt(int index) const;
    SmartMenuItem* selectedItem() const { return itemAt(indexOfSelectedItem()); }
    int indexOfSelectedItem() const { return currentIndex(); }

    /// What is no item selects none.
    void selectItemAt(int index);
    /// The first item with the tag; without one the selection stays and the answer is false.
    bool selectItemWithTag(int tag);

    /// Wide enough for the widest item.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    void apply(const ControlSkin& skin) override;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    void prepareList() override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    std::vector<DrawingAsset> assets() const override;

private:
    void deleteItems();
    void deselectSeparator();
    int rowOf(const SmartMenuItem* item) const;
    void showItem(const SmartMenuItem* item);
    void forgetItem(const SmartMenuItem* item);
    TwoPartText selectedText() const;
    QSize sizeFor(double textWidth) const;
    QRectF textRect(const QRectF& frame) const;

    std::vector<SmartMenuItem*> items_;  // null for separators
};

}  // namespace marquell::toolkit
