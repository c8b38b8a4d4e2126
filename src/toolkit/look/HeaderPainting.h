// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyleOption>

namespace marquell::toolkit {

void paintHeader(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// Where there are no sections.
void paintHeaderGround(const QStyleOption& option, QPainter& painter, const QWidget* widget);

QSize headerSectionSize(const QStyleOptionHeader& header);

}  // namespace marquell::toolkit
