// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {

/// The text of a popup's item: the choice, and behind it, smaller and on the same baseline, an
/// optional subtitle.
struct TwoPartText {
    QString choice;
    QString subtitle;

    /// Both as one text, for those who cannot see the difference.
    QString whole() const;
};

/// The fonts of the parts for a control of a size.
struct TwoPartFonts {
    explicit TwoPartFonts(ControlSize size);

    QFont choice;
    QFont subtitle;
};

struct TwoPartColors {
    QColor choice;
    QColor subtitle;
};

/// In px.
double widthOf(const TwoPartText& text, const TwoPartFonts& fonts);

/// Draws the text at the leading side of the box. Where it is too long, the choice is cut with an
/// ellipsis and the subtitle stays whole.
void drawTwoPartText(QPainter& painter, const QRectF& box, const TwoPartText& text,
                     const TwoPartFonts& fonts, const TwoPartColors& colors);

}  // namespace marquell::toolkit
