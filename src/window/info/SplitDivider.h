// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <optional>

namespace marquell::window {

class MarquellSplitView;

/// Where the mouse takes hold of the divider, which is too thin itself. Shows nothing.
class SplitDivider : public QWidget {
public:
    explicit SplitDivider(MarquellSplitView* splitView);

    /// Lies on the divider, and over the free edge of the pane below it or, while that is
    /// collapsed, over the view above.
    void place(bool isAbove);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int heightInSplitView(const QMouseEvent& event) const;

    MarquellSplitView& splitView_;
    std::optional<int> grip_;  // px from the divider to the mouse, during a drag
};

}  // namespace marquell::window
