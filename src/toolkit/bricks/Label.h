// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <optional>

#include "toolkit/bricks/Brick.h"
#include "toolkit/look/ColorRole.h"

namespace marquell::toolkit {

/// One line of plain text that is nothing but read. Where it is too long it is cut with an
/// ellipsis, and the whole of it is the tool tip, unless the label has one of its own. It is as
/// high as a control of its size. Set as a buddy, it names a control for assistive programs.
class Label : public Brick<QLabel> {
public:
    explicit Label(QWidget* parent = nullptr);
    explicit Label(const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);
    QString text() const;

    void setElideMode(Qt::TextElideMode mode);
    /// The role of the text's colour; ColorRole::text at first.
    void setColorRole(ColorRole role);
    /// A fixed colour, whatever the label lies on; an invalid one gives way to the role again.
    void setTextColor(const QColor& color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    void apply(const ControlSkin& skin) override;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    double textWidth() const;

    Qt::TextElideMode elideMode_ = Qt::ElideRight;
    ColorRole role_ = ColorRole::text;
    QColor textColor_;
};

/// A label with a title, without a parent.
Label* standardLabel(const QString& title);

}  // namespace marquell::toolkit
