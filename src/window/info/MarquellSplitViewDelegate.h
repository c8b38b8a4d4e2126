// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <optional>

namespace marquell::window {

/// Decides how the room of the split view is shared out. Heights in points.
class MarquellSplitViewDelegate {
public:
    static constexpr double maximumHeightOfInfoPane = 400;
    static constexpr double minimumHeightOfInfoPane = 200;

    MarquellSplitViewDelegate(QWidget* above, QWidget* below) : mainView(above), infoPane(below) {}

    /// The height that the info pane gets where `asked` is wished for; absent if it collapses,
    /// which is for what comes nearer to nothing than to the smallest height.
    static std::optional<double> constrainHeightOfInfoPane(double asked);

    QWidget* const mainView;
    QWidget* const infoPane;
};

}  // namespace marquell::window
