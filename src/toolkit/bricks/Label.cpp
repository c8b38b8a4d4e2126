// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/Label.h"

#include <algorithm>
#include <cmath>

#include "toolkit/bricks/CutTextToolTip.h"
#include "toolkit/bricks/FieldSkin.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {

Label::Label(QWidget* parent) : Brick<QLabel>(parent) {
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction);
}

Label::Label(const QString& text, QWidget* parent) : Label(parent) { setText(text); }

// An "&" in the text of a label with a buddy would mark a shortcut.
void Label::setText(const QString& text) { QLabel::setText(titleText(text)); }

QString Label::text() const { return textOfTitle(QLabel::text()); }

void Label::setElideMode(Qt::TextElideMode mode) {
    elideMode_ = mode;
    update();
}

void Label::setColorRole(ColorRole role) {
    role_ = role;
    update();
}

void Label::setTextColor(const QColor& color) {
    textColor_ = color;
    update();
}

double Label::textWidth() const { return QFontMetricsF(font()).horizontalAdvance(text()); }

QSize Label::sizeHint() const {
    return {static_cast<int>(std::ceil(textWidth())), minimumSizeHint().height()};
}

QSize Label::minimumSizeHint() const {
    const int height = metrics().controlHeight(controlSizeOf(this));
    return {0, std::max(height, fontMetrics().height())};
}

void Label::apply(const ControlSkin& skin) {
    const QColor color = labelColorOf(skin);
    if (color.isValid()) setTextColor(color);
}

void Label::drawAsStyle(QPainter& painter, const QRectF& frame) {
    const ColorRole role = isEnabled() ? role_ : ColorRole::disabledText;
    painter.setPen(textColor_.isValid() ? textColor_ : color(role, this));
    drawTextLine(painter, frame, text(), alignment() & Qt::AlignHorizontal_Mask, elideMode_);
}

bool Label::event(QEvent* event) {
    return (event->type() == QEvent::ToolTip &&
            showCutText(this, event, text(), textWidth(), width())) ||
           QLabel::event(event);
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    delegateDrawingToSuper(painter, QRectF(rect()));
}

Label* standardLabel(const QString& title) { return new Label(title); }

}  // namespace marquell::toolkit
