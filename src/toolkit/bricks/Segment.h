// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/look/FocusRing.h"

namespace marquell::toolkit {

/// One segment of a row: draws its image and its title. The row paints what is behind them.
class Segment : public QToolButton, public FocusRingShaped {
public:
    explicit Segment(SegmentedControlBrick* row);

    void setTitle(const QString& title);
    QString title() const;
    void setImage(TemplateImage image);

    /// Of image and title, in px.
    int contentWidth() const;

    FocusRingPlace focusRingPlace() const override;
    QRectF focusRingRect() const override;
    double focusRingRadius() const override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    double titleWidth() const;
    double imageWidth() const;

    SegmentedControlBrick* const row_;
    TemplateImage image_;
};

}  // namespace marquell::toolkit
