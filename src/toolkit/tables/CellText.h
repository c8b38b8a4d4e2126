// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>
#include <QWidget>

#include "toolkit/tables/TableCellView.h"

namespace marquell::toolkit {

// How the text of a cell is drawn and told. Characters that show nothing, or that rearrange others,
// stand as marks; of long texts only as much is taken as a cell can show.

/// Draws the label in the box, which is on `view`: the text is cut, the abbreviation never.
void drawCellLabel(QPainter& painter, const QRectF& box, const CellLabel& label,
                   const QWidget* view);

/// A column's title as its header shows it.
QString headerText(const QString& title);

/// The room that the whole label takes, in px.
double naturalWidth(const CellLabel& label);

/// The tool tip of a cell whose text has `room` px, as Qt takes it; empty for none.
QString toolTipOf(const TableCellView& cell, double room);

/// For assistive programs.
QString spokenText(const TableCellView& cell);

}  // namespace marquell::toolkit
