// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

#include "toolkit/look/Surface.h"

namespace marquell::toolkit {

/// What a colour is for. Each role has one value for each surface, in one table (ColorRole.cpp);
/// text roles keep 4.5:1 on the grounds that they are meant for, edges of controls 3:1.
enum class ColorRole {
    // Grounds
    base,
    alternateBase,
    window,
    windowLine,  // under the menu bar and in menus
    menu,
    menuBorder,
    header,
    headerLine,
    page,  // what text pages and right side lie on
    tagBand,
    effectGround,
    effectGroundInactive,
    // Text
    text,
    headerText,
    secondaryText,
    waitingText,
    disabledText,
    // Selection
    selection,
    selectionText,
    selectionSecondaryText,
    // Controls
    controlBorder,
    controlBorderHover,
    controlBorderDisabled,
    controlFill,
    controlFillHover,
    controlFillPressed,
    controlFillDisabled,
    accentFill,
    accentFillHover,
    accentFillPressed,
    accentFillDisabled,
    accentText,
    selectedSegmentFill,
    selectedSegmentBorder,
    selectedSegmentText,
    infoTabFill,
    infoTabHover,
    glyphHover,
    glyphPressed,
    listFrame,
    divider,
    separator,
    scrollThumb,
    scrollThumbHover,
    scrollEdge,
    focusRing,
};

QColor color(ColorRole role, Surface surface);

/// The colour on the surface that the view lies on.
QColor color(ColorRole role, const QWidget* view);

}  // namespace marquell::toolkit
