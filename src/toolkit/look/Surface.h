// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace marquell::toolkit {

/// What a view lies on; it decides every colour.
enum class Surface { light, dark, column };

/// What a part of the window is told to look like, from a view downwards.
enum class Appearance { system, light, dark, column };

/// The surface of views that nothing else was told: light, or dark once setSystemDark said so.
Surface systemSurface();

/// Turns the whole program to dark or light in one turn: the application's palette and those of all
/// views whose appearance follows the system.
void setSystemDark(bool dark);

/// Gives the view, and all below it that is not told otherwise, the palette of an appearance, which
/// outlives changes of the application's palette.
void setAppearance(QWidget* view, Appearance appearance);

/// The surface that a view lies on; without a view, or with nothing told above it, the system's.
Surface surfaceOf(const QWidget* view);

/// The palette of a surface: all roles in all three groups.
QPalette paletteOf(Surface surface);

}  // namespace marquell::toolkit
