// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyleOption>

#include "toolkit/look/ButtonRole.h"

namespace marquell::toolkit {

/// The role that a button is drawn in: a dialog's default button stands out untold, a flat one has
/// no frame.
ButtonRole shownButtonRole(const QWidget* button);

void paintPushButton(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintPushButtonBox(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintToolButtonBox(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintCheckBoxIndicator(const QStyleOption& option, QPainter& painter, const QWidget* widget);
/// Of a cell: the box of a ticked one must not be lost on a selected row.
void paintCellIndicator(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintRadioIndicator(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintCheckBox(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintRadioButton(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// The size of a button with an indicator before its label.
QSize checkBoxSize(const QStyleOptionButton& button, const QWidget* widget);

/// The radius of the corners of a tool button, in px.
double toolButtonRadius();

}  // namespace marquell::toolkit
