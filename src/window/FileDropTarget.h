// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QDragMoveEvent;
class QDropEvent;
class QWidget;

namespace marquell::window {

/// Takes files that are dropped anywhere on a view, but for the views on it that take them
/// themselves. It lives as long as the view.
class FileDropTarget : public QObject {
public:
    /// Called after the drop has ended, with at least one path.
    using Add = std::function<void(const std::vector<std::string>& paths)>;
    /// Called when files come over the view, and when they leave it or are dropped.
    using Show = std::function<void(bool areAbove)>;

    static void install(QWidget& view, Add add, Show show);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    FileDropTarget(QWidget& view, Add add, Show show);

    bool accept(QDropEvent& event) const;
    void drop(QDropEvent& event);

    const Add add_;
    const Show show_;
};

}  // namespace marquell::window
