// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyle>
#include <QStyleOption>

namespace marquell::toolkit {

void paintSlider(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintProgressBar(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// Where the parts of a slider lie, not yet mirrored; null for unknown parts.
QRect sliderPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget);

}  // namespace marquell::toolkit
