// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "toolkit/bricks/ListBrick.h"

namespace marquell::toolkit {

/// A text field with a list of texts to choose from.
class ComboBoxBrick : public ListBrick {
public:
    explicit ComboBoxBrick(QWidget* parent = nullptr);

    /// Called with the text at each change by the user, be it typed or chosen, and on Return.
    std::function<void(const QString& text)> textChangedAction;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
};

}  // namespace marquell::toolkit
