// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyleOption>

namespace marquell::toolkit {

void paintMenuGround(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintMenuFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintMenuItem(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintMenuScroller(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintMenuBarItem(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void paintMenuBarGround(const QStyleOption& option, QPainter& painter, const QWidget* widget);

/// `contents` is the size of the text before the shortcut.
QSize menuItemSize(const QStyleOptionMenuItem& item, const QSize& contents, const QWidget* widget);

}  // namespace marquell::toolkit
