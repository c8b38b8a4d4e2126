// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QPainter>
#include <QWidget>
#include <vector>

namespace marquell::toolkit {

/// What lies behind the segments of a row, in the row's coordinates: one rounded frame, with the
/// selected segment marked. The segments are given from left to right.
void paintCapsule(QPainter& painter, const QWidget& row,
                  const std::vector<const QAbstractButton*>& segments);

/// The same for tabs: the selected one is open towards what is below.
void paintTabs(QPainter& painter, const QWidget& row,
               const std::vector<const QAbstractButton*>& segments);

}  // namespace marquell::toolkit
