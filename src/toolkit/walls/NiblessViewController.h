// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <utility>

#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {

/// Builds a view and looks after it. The view comes from build(), which calls setView() with the
/// main wall; makeController() runs it. The view is the controller's until it gets a parent.
class NiblessViewController : public QObject {
public:
    /// An alternative to overriding build().
    using BuildFunc = std::function<void(NiblessViewController& controller)>;

    /// `delayedBuild`: the owner calls build() itself, later.
    explicit NiblessViewController(bool delayedBuild = false, BuildFunc buildFunc = {});
    ~NiblessViewController() override;

    virtual void build();

    /// There is nothing to load: the view is built.
    void loadView() {}

    void setView(Wall* view);
    Wall* view() const { return view_; }

    bool delayedBuild() const { return delayedBuild_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// The view has come on the screen, or has gone from it: with its window, with the page that it
    /// is on, as a new view of this controller, or by its end (view() is null then). The two always
    /// alternate. A controller that is destroyed before its view says nothing any more.
    virtual void viewDidAppear() {}
    virtual void viewDidDisappear() {}

private:
    void dropView();
    void setOnScreen(bool isOnScreen);

    QPointer<Wall> view_;
    const BuildFunc buildFunc_;
    const bool delayedBuild_;
    bool isOnScreen_ = false;
};

/// Makes a controller and has it build its view, unless that is delayed. Controllers are made by
/// this alone, as a constructor cannot call the build() of a derived class.
template <typename Controller, typename... Arguments>
std::unique_ptr<Controller> makeController(Arguments&&... arguments) {
    auto controller = std::make_unique<Controller>(std::forward<Arguments>(arguments)...);
    if (!controller->delayedBuild()) controller->build();
    return controller;
}

}  // namespace marquell::toolkit
