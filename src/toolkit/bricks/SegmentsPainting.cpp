// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SegmentsPainting.h"

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"

namespace marquell::toolkit {
namespace {

using Segments = std::vector<const QAbstractButton*>;

ControlState stateOf(const QAbstractButton& segment) {
    return {.enabled = segment.isEnabled(),
            .hovered = segment.underMouse(),
            .pressed = segment.isDown()};
}

ControlColors capsuleColors(const QAbstractButton& segment) {
    const Surface surface = surfaceOf(&segment);
    ControlColors colors = controlColors(stateOf(segment), surface);
    colors.border = color(
        segment.isEnabled() ? ColorRole::controlBorder : ColorRole::controlBorderDisabled, surface);
    if (!segment.isChecked()) return colors;
    if (segment.isEnabled()) {
        colors.fill = color(ColorRole::selectedSegmentFill, surface);
        colors.border = color(ColorRole::selectedSegmentBorder, surface);
    } else {
        colors.fill = color(ColorRole::accentFillDisabled, surface);
    }
    return colors;
}

ControlColors tabColors(const QAbstractButton& segment) {
    const Surface surface = surfaceOf(&segment);
    const ControlState state = stateOf(segment);
    ColorRole fill = ColorRole::infoTabFill;
    if (state.enabled && (state.hovered || state.pressed)) fill = ColorRole::infoTabHover;
    if (segment.isChecked()) fill = ColorRole::base;
    return {color(fill, surface), color(ColorRole::controlBorder, surface), QColor()};
}

/// The part of a rounded box about the whole row that belongs to one segment. Segments share the
/// line between them, which is on the later one's first pixels.
void paintPart(QPainter& painter, const QRectF& box, double radius, const QRectF& part,
               const ControlColors& colors) {
    painter.save();
    painter.setClipRect(part);
    drawBox(painter, box, radius, colors.fill, colors.border);
    painter.restore();
}

QRectF lineBetween(const QPainter& painter, const QRectF& segment) {
    return {segment.left(), segment.top(), hairline(painter), segment.height()};
}

}  // namespace

void paintCapsule(QPainter& painter, const QWidget& row, const Segments& segments) {
    const QRectF box(row.rect());
    const double radius = controlRadius(controlSizeOf(&row));
    for (const QAbstractButton* segment : segments) {
        paintPart(painter, box, radius, snapped(painter, QRectF(segment->geometry())),
                  capsuleColors(*segment));
    }
    // The frame of the selected segment goes before those of its neighbours.
    const QAbstractButton* left = nullptr;
    for (const QAbstractButton* segment : segments) {
        if (left != nullptr) {
            const QAbstractButton* owner = left->isChecked() ? left : segment;
            painter.fillRect(lineBetween(painter, snapped(painter, QRectF(segment->geometry()))),
                             capsuleColors(*owner).border);
        }
        left = segment;
    }
}

void paintTabs(QPainter& painter, const QWidget& row, const Segments& segments) {
    const double radius = controlRadius(ControlSize::mini);
    const double line = hairline(painter);
    // Only the upper corners are round: the lower ones are below what is drawn.
    const QRectF box = QRectF(row.rect()).adjusted(0, 0, 0, 2 * radius);
    const QAbstractButton* left = nullptr;
    for (const QAbstractButton* segment : segments) {
        const QRectF part = snapped(painter, QRectF(segment->geometry()));
        const ControlColors colors = tabColors(*segment);
        paintPart(painter, box, radius, part, colors);
        if (left != nullptr) painter.fillRect(lineBetween(painter, part), colors.border);
        if (segment->isChecked()) {
            const double mark = sharpWidth(painter, 2 * metrics().scale());
            painter.fillRect(QRectF(part.x(), part.y(), part.width() + line, mark),
                             color(ColorRole::selectedSegmentBorder, &row));
        } else {
            painter.fillRect(QRectF(part.x(), part.bottom() - line, part.width(), line),
                             colors.border);
        }
        left = segment;
    }
}

}  // namespace marquell::toolkit
