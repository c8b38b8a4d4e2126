// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyleOption>

namespace marquell::toolkit {

// Frames, tabs and what divides panes.

void paintFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintGroupFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintToolTip(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintTab(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintTabLabel(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintSplitter(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// The mark of the current cell, where it is not selected too.
void paintCurrentCell(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// For what is not to be seen.
void paintNothing(const QStyleOption& option, QPainter& painter, const QWidget* widget);

}  // namespace marquell::toolkit
