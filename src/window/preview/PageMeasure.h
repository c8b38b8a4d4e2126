// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

#include "window/preview/TextAdvances.h"

namespace marquell::window {

/// The measure of a page of text, in px. It holds until the fonts change.
struct PageMeasure {
    PageMeasure();

    QFont font;
    int margin;       ///< on all sides of the page
    int rowHeight;    ///< of each line
    double baseline;  ///< seen from the top of a row
    double tabDistance;
    double averageWidth;  ///< of a character
    TextAdvances advances;
};

}  // namespace marquell::window
