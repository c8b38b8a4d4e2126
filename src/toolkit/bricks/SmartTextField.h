// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <functional>

#include "toolkit/bricks/Brick.h"
#include "toolkit/bricks/UserListeners.h"
#include "toolkit/layout/ViewMeasures.h"

namespace marquell::toolkit {

/// A field for one line of text. It asks for no width of its own.
class SmartTextField : public Brick<QLineEdit>,
                       public IntrinsicallySized,
                       public UserListeners<QString> {
public:
    explicit SmartTextField(QWidget* parent = nullptr);

    IntrinsicSize intrinsicContentSize() const override;

    void apply(const ControlSkin& skin) override;

    /// Called with the text at each change by the user, and on Return.
    std::function<void(const QString& text)> textChangedAction;
    /// Called on Return.
    std::function<void()> buttonPressFunction;
};

}  // namespace marquell::toolkit
