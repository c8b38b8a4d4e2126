// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

namespace marquell::toolkit {

/// Where the baseline of a line of text lies in a box, seen from its top: half the box's height and
/// `baselineOffset`. All controls and labels of the house hold to it, so those of a row share one.
double baselineOffset(const QFontMetricsF& font);

/// Draws one line of text in the painter's font and pen, on the baseline of the box, horizontally
/// aligned in it, cut with an ellipsis where it is too long.
void drawTextLine(QPainter& painter, const QRectF& box, const QString& text,
                  Qt::Alignment alignment = Qt::AlignLeading,
                  Qt::TextElideMode elide = Qt::ElideRight);

/// The same with the baseline given, in the painter's coordinates: for texts of two sizes that
/// share one.
void drawTextOnBaseline(QPainter& painter, const QRectF& box, double baseline, const QString& text,
                        Qt::Alignment alignment = Qt::AlignLeading,
                        Qt::TextElideMode elide = Qt::ElideRight);

}  // namespace marquell::toolkit
