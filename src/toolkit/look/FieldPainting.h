// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyle>
#include <QStyleOption>

namespace marquell::toolkit {

void paintField(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintComboBox(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintComboBoxLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintSpinBox(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// Where the parts of popups and spin boxes lie, not yet mirrored; null for unknown parts.
QRect comboBoxPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget);
QRect spinBoxPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget);

/// The width of the steppers of a spin box, in px.
int spinButtonsWidth(const QStyleOption& option);

/// Line edits of Qt keep this margin of their own about the text, in px.
constexpr int lineEditMargin = 2;

}  // namespace marquell::toolkit
