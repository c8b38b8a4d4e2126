// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "toolkit/layout/ViewMeasures.h"
#include "window/info/MarquellSplitViewDelegate.h"

namespace marquell::window {

class SplitDivider;

/// The preview above, the info pane below, and a divider that the user drags; a double click on it
/// collapses the pane or brings it back. Its delegate's limits hold for what the user or the
/// program asks for. When the window changes its size, both parts keep their shares, whatever the
/// limits are; what is collapsed stays so.
class MarquellSplitView : public QWidget, public toolkit::MinimumProviding {
public:
    /// Takes both views; each becomes a root of layout. The pane stands in the place of its last
    /// run, which it takes before it is first seen: `paneHeight` in points, or collapsed.
    MarquellSplitView(QWidget* mainView, QWidget* infoPane, double paneHeight, bool isCollapsed);

    bool isPaneCollapsed() const { return isCollapsed_; }
    /// Points. While the pane is collapsed, the height that it had last.
    double paneHeight() const { return paneHeight_; }
    /// In points, as if the divider were dragged there.
    void askForPaneHeight(double height);

    // For the divider; places in px.

    /// The divider's upper edge.
    int dividerPosition() const { return dividerPosition_; }
    void dragDivider(int position);
    void toggleByDoubleClick();

    QSize minimumContentSize() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void keepShare();
    void placeViews();
    void setCollapsed(bool isCollapsed);

    const MarquellSplitViewDelegate delegate_;
    SplitDivider* const divider_;  // owned as a child
    double paneHeight_;
    bool isCollapsed_;
    int dividerPosition_ = 0;
    int heightOfShares_ = 0;  // px, for which paneHeight_ holds; 0 before this has been seen
};

}  // namespace marquell::window
