// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/PanePainting.h"

#include <QAbstractItemView>
#include <QGroupBox>
#include <QPainter>
#include <algorithm>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {

void paintFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const bool enabled = option.state & QStyle::State_Enabled;
    const ColorRole role = enabled ? ColorRole::controlBorder : ColorRole::controlBorderDisabled;
    drawBox(painter, option.rect, 0, QColor(), color(role, widget));
}

void paintGroupFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto* group = dynamic_cast<const QGroupBox*>(widget);
    const bool titled = group != nullptr && (group->isCheckable() || !group->title().isEmpty());
    // The title lies above.
    const int title = std::max(option.fontMetrics.height(), metrics().px(16)) + metrics().px(3);
    drawBox(painter, option.rect.adjusted(0, titled ? title : 0, 0, 0), 4 * metrics().scale(),
            QColor(), color(ColorRole::separator, widget));
}

void paintToolTip(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    drawBox(painter, option.rect, 0, color(ColorRole::menu, widget),
            color(ColorRole::menuBorder, widget));
}

void paintTab(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const bool selected = option.state & QStyle::State_Selected;
    const bool hovered = option.state & QStyle::State_MouseOver;
    const ColorRole fill = selected  ? ColorRole::window
                           : hovered ? ColorRole::infoTabHover
                                     : ColorRole::infoTabFill;
    // Neighbours share a border.
    const QRectF box = QRectF(option.rect).adjusted(0, 0, 1, selected ? 1 : 0);
    drawBox(painter, box, 0, color(fill, widget), color(ColorRole::controlBorder, widget));
    if (!selected) return;
    const double line = sharpWidth(painter, 2);
    painter.fillRect(QRectF(box.x(), box.y(), box.width(), line),
                     color(ColorRole::selectedSegmentBorder, widget));
}

void paintTabLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& tab = static_cast<const QStyleOptionTab&>(option);
    const bool enabled = option.state & QStyle::State_Enabled;
    painter.setPen(color(enabled ? ColorRole::text : ColorRole::disabledText, widget));
    drawTextLine(painter, option.rect, textOfTitle(tab.text), Qt::AlignHCenter);
}

void paintSplitter(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const QRectF box(option.rect);
    const double line = hairline(painter);
    const QPointF middle = snapped(painter, box.center() - QPointF(line / 2, line / 2));
    // The option tells which way the panes lie, not the divider.
    const bool upright = option.state & QStyle::State_Horizontal;
    painter.fillRect(upright ? QRectF(middle.x(), box.y(), line, box.height())
                             : QRectF(box.x(), middle.y(), box.width(), line),
                     color(ColorRole::divider, widget));
}

void paintCurrentCell(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    if (dynamic_cast<const QAbstractItemView*>(widget) == nullptr) return;
    const bool atKeyboard = option.state & QStyle::State_KeyboardFocusChange;
    if (!atKeyboard || (option.state & QStyle::State_Selected)) return;
    drawBox(painter, option.rect, 0, QColor(), color(ColorRole::focusRing, widget));
}

void paintNothing(const QStyleOption& /*option*/, QPainter& /*painter*/,
                  const QWidget* /*widget*/) {}

}  // namespace marquell::toolkit
