// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/FieldPainting.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QPainter>

#include "toolkit/look/ArrowPainting.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

constexpr double spinButtonWidth = 20;  // points

/// A field to write in keeps the fill of its rest: it is not to be pressed.
void drawFieldBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    ControlState state = controlStateOf(option);
    state.pressed = false;
    ControlColors colors = controlColors(state, surfaceOf(widget));
    state.hovered = false;
    colors.fill = controlColors(state, surfaceOf(widget)).fill;
    drawBox(painter, option.rect, controlRadius(controlSizeOf(widget)), colors.fill, colors.border);
}

bool isPartOfAField(const QWidget* widget) {
    const QWidget* parent = widget == nullptr ? nullptr : widget->parentWidget();
    return dynamic_cast<const QComboBox*>(parent) != nullptr ||
           dynamic_cast<const QAbstractSpinBox*>(parent) != nullptr;
}

ControlState stepState(const QStyleOptionSpinBox& option, QStyle::SubControl part,
                       QAbstractSpinBox::StepEnabledFlag needed) {
    ControlState state = controlStateOf(option);
    state.enabled &= bool(option.stepEnabled & needed);
    state.pressed &= bool(option.activeSubControls & part);
    return state;
}

}  // namespace

void paintField(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    if (isPartOfAField(widget)) return;
    const auto& frame = static_cast<const QStyleOptionFrame&>(option);
    if (frame.lineWidth > 0) {
        drawFieldBox(option, painter, widget);
    } else {
        painter.fillRect(option.rect, option.palette.brush(QPalette::Base));
    }
}

void paintComboBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& combo = static_cast<const QStyleOptionComboBox&>(option);
    if (!combo.frame) return;
    ControlState state = controlStateOf(option);
    state.pressed |= bool(option.state & QStyle::State_On);
    if (combo.editable) {
        drawFieldBox(option, painter, widget);
    } else {
        drawControlBox(painter, option.rect, controlRadius(controlSizeOf(widget)), state,
                       surfaceOf(widget));
    }
    const QRect chevron = popupChevronBox(option.rect).toRect();
    drawChevron(painter, Qt::DownArrow, QStyle::visualRect(option.direction, option.rect, chevron),
                controlColors(state, surfaceOf(widget)).text);
}

void paintComboBoxLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& combo = static_cast<const QStyleOptionComboBox&>(option);
    if (combo.editable) return;
    const QRect field = comboBoxPart(QStyle::SC_ComboBoxEditField, option, widget);
    QRectF box = QStyle::visualRect(option.direction, option.rect, field);
    if (!combo.currentIcon.isNull()) {
        const QIcon::Mode mode =
            option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
        const QSize size = combo.iconSize;
        const QRectF icon(QPointF(box.x(), box.center().y() - size.height() / 2.0), size);
        combo.currentIcon.paint(&painter, icon.toRect(), Qt::AlignCenter, mode);
        box.setLeft(icon.right() + metrics().px(6));
    }
    painter.setPen(controlColors(controlStateOf(option), surfaceOf(widget)).text);
    drawTextLine(painter, box, combo.currentText);
}

void paintSpinBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& spin = static_cast<const QStyleOptionSpinBox&>(option);
    if (spin.frame) drawFieldBox(option, painter, widget);
    if (spin.buttonSymbols == QAbstractSpinBox::NoButtons) return;
    struct Step {
        QStyle::SubControl part;
        QAbstractSpinBox::StepEnabledFlag needed;
        Qt::ArrowType direction;
    };
    constexpr Step steps[] = {
        {QStyle::SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, Qt::UpArrow},
        {QStyle::SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, Qt::DownArrow},
    };
    for (const auto& [part, needed, direction] : steps) {
        const ControlState state = stepState(spin, part, needed);
        const QRect box =
            QStyle::visualRect(option.direction, option.rect, spinBoxPart(part, option, widget));
        if (state.pressed) {
            const ControlColors colors = controlColors(state, surfaceOf(widget), ButtonRole::glyph);
            drawBox(painter, QRectF(box).adjusted(1, 1, -2, -1), 3, colors.fill, QColor());
        }
        drawChevron(painter, direction, box, controlColors(state, surfaceOf(widget)).text);
    }
}

int spinButtonsWidth(const QStyleOption& option) {
    const auto& spin = static_cast<const QStyleOptionSpinBox&>(option);
    const bool hasButtons = spin.buttonSymbols != QAbstractSpinBox::NoButtons;
    return hasButtons ? metrics().px(spinButtonWidth) : 0;
}

QRect comboBoxPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget) {
    const QRect& rect = option.rect;
    const int field = popupFieldWidth(controlSizeOf(widget));
    const bool editable = static_cast<const QStyleOptionComboBox&>(option).editable;
    const int padding = popupPadding(controlSizeOf(widget)) - (editable ? lineEditMargin : 0);
    switch (part) {
        case QStyle::SC_ComboBoxFrame:
            return rect;
        case QStyle::SC_ComboBoxListBoxPopup:
            // The rows of the list need a little more about the text.
            return rect.adjusted(0, 0, metrics().px(4), 0);
        case QStyle::SC_ComboBoxArrow:
            return rect.adjusted(rect.width() - field, 0, 0, 0);
        case QStyle::SC_ComboBoxEditField:
            return rect.adjusted(padding, 0, -field, 0);
        default:
            return {};
    }
}

QRect spinBoxPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget) {
    const int buttons = spinButtonsWidth(option);
    const QRect& rect = option.rect;
    const QRect column = rect.adjusted(rect.width() - buttons, 0, 0, 0);
    const int half = rect.height() / 2;
    const int padding = popupPadding(controlSizeOf(widget)) - lineEditMargin;
    switch (part) {
        case QStyle::SC_SpinBoxFrame:
            return rect;
        case QStyle::SC_SpinBoxUp:
            return column.adjusted(0, 1, 0, -half);
        case QStyle::SC_SpinBoxDown:
            return column.adjusted(0, half, 0, -1);
        case QStyle::SC_SpinBoxEditField:
            return rect.adjusted(padding, 1, -buttons, -1);
        default:
            return {};
    }
}

}  // namespace marquell::toolkit
