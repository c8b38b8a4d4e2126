// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFocusFrame>
#include <QPointer>

#include "toolkit/look/FocusRingShape.h"

namespace marquell::toolkit {

/// Draws the ring about a control and nothing else; lies above all other views of its parent. Being
/// a focus frame keeps it out of the accessible tree.
class FocusRingView : public QFocusFrame {
public:
    /// `parent` is an ancestor of the control.
    FocusRingView(QWidget* parent, const QWidget* control);

    const QWidget* control() const { return control_; }

    /// Lies down where the control is by now.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPointer<const QWidget> control_;
    FocusRingShape shape_;  // in the parent's coordinates
};

}  // namespace marquell::toolkit
