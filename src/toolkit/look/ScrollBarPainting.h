// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyle>
#include <QStyleOption>

namespace marquell::toolkit {

void paintScrollBar(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// Scroll bars have a thumb on a groove and no arrows; the thumb of one that cannot scroll is
/// empty.
QRect scrollBarPart(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget);

}  // namespace marquell::toolkit
