// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyleOption>

namespace marquell::toolkit {

/// Draws the chevron in the middle of the rectangle, pointing in a direction.
void drawChevron(QPainter& painter, Qt::ArrowType direction, const QRectF& box,
                 const QColor& color);

/// The chevrons of fields, tables and tool buttons, in the colour of text on their surface.
template <Qt::ArrowType direction>
void paintArrow(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// The chevron before a row that can be opened.
void paintBranch(const QStyleOption& option, QPainter& painter, const QWidget* widget);

}  // namespace marquell::toolkit
