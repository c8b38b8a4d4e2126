// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <QLabel>

#include "toolkit/layout/ViewMeasures.h"

namespace marquell::window {

/// Says in the middle of an empty list why it is empty. Lies over the whole list, lets the mouse
/// through, and writes where the rows would be.
class EmptyListSentence : public QLabel, public toolkit::IntrinsicallySized {
public:
    /// The list has to outlive it.
    explicit EmptyListSentence(const QAbstractScrollArea& list);

    toolkit::IntrinsicSize intrinsicContentSize() const override { return {}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QAbstractScrollArea& list_;
};

}  // namespace marquell::window
