// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/Segment.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "toolkit/bricks/CutTextToolTip.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

constexpr double imageSide = 19;
constexpr double imageGap = 6;
constexpr double cutMargin = 2;  // beside what is cut

}  // namespace

Segment::Segment(SegmentedControlBrick* row) : QToolButton(row), row_(row) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
}

void Segment::setTitle(const QString& title) { setText(titleText(title)); }

QString Segment::title() const { return textOfTitle(text()); }

void Segment::setImage(TemplateImage image) { image_ = std::move(image); }

double Segment::titleWidth() const {
    return QFontMetricsF(row_->font()).horizontalAdvance(title());
}

/// With the gap behind it.
double Segment::imageWidth() const {
    if (!image_) return 0;
    return metrics().px(imageSide) + (title().isEmpty() ? 0 : metrics().px(imageGap));
}

int Segment::contentWidth() const {
    return static_cast<int>(std::ceil(imageWidth() + titleWidth()));
}

FocusRingPlace Segment::focusRingPlace() const {
    const bool isTab = row_->segmentStyle() == SegmentStyle::smallSquare;
    return isTab ? FocusRingPlace::inside : FocusRingPlace::outside;
}

QRectF Segment::focusRingRect() const {
    if (focusRingPlace() == FocusRingPlace::inside) return QRectF(rect());
    return QRectF(row_->rect().translated(-pos()));
}

double Segment::focusRingRadius() const {
    if (focusRingPlace() == FocusRingPlace::inside) return 0;
    return controlRadius(controlSizeOf(row_));
}

bool Segment::event(QEvent* event) {
    return (event->type() == QEvent::ToolTip &&
            showCutText(this, event, title(), contentWidth(),
                        width() - 2 * metrics().px(cutMargin))) ||
           QToolButton::event(event);
}

void Segment::keyPressEvent(QKeyEvent* event) {
    const int onwards = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    switch (event->key()) {
        case Qt::Key_Left:
            return row_->selectBeside(this, -onwards);
        case Qt::Key_Right:
            return row_->selectBeside(this, onwards);
        case Qt::Key_Up:
            return row_->selectBeside(this, -1);
        case Qt::Key_Down:
            return row_->selectBeside(this, 1);
        default:
            QToolButton::keyPressEvent(event);
    }
}

void Segment::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(row_->font());
    const bool isMarked = isChecked() && row_->segmentStyle() == SegmentStyle::capsule;
    const ColorRole usual = isMarked ? ColorRole::selectedSegmentText : ColorRole::text;
    const QColor ink = color(isEnabled() ? usual : ColorRole::disabledText, this);
    const double drawn = std::min<double>(contentWidth(), width() - 2 * metrics().px(cutMargin));
    const QRectF content((width() - drawn) / 2, 0, drawn, height());
    QRectF text = content;
    if (image_) {
        const double side = metrics().px(imageSide);
        const bool isMirrored = layoutDirection() == Qt::RightToLeft;
        const double x = isMirrored ? content.right() - side : content.left();
        const QPointF corner(std::floor(x), std::floor((height() - side) / 2));
        image_(painter, QRectF(corner, QSizeF(side, side)), ink);
        isMirrored ? text.setRight(text.right() - imageWidth())
                   : text.setLeft(text.left() + imageWidth());
    }
    painter.setPen(ink);
    drawTextLine(painter, text, title());
}

}  // namespace marquell::toolkit
