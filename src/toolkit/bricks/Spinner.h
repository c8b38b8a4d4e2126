// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

#include "toolkit/layout/ViewMeasures.h"

namespace marquell::toolkit {

/// A turning wheel: something is under way and nobody knows for how long. It turns only while it is
/// started and to be seen.
class Spinner : public QWidget, public IntrinsicallySized {
public:
    explicit Spinner(QWidget* parent = nullptr);

    void startAnimation();
    void stopAnimation();
    bool isAnimating() const { return isAnimating_; }

    IntrinsicSize intrinsicContentSize() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool isAnimating_ = false;
    int foremostSpoke_ = 0;
    QTimer turning_;
};

}  // namespace marquell::toolkit
