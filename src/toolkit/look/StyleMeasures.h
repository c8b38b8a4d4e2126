// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyle>
#include <QStyleOption>
#include <optional>

namespace marquell::toolkit {

// What the style answers when it is asked for sizes and habits; nothing, where it keeps to Fusion.

std::optional<int> measureFor(QStyle::PixelMetric metric);
std::optional<int> habitFor(QStyle::StyleHint hint, const QWidget* widget);

/// `usual` is Fusion's size.
QSize controlSizeFor(QStyle::ContentsType type, const QStyleOption& option, const QSize& contents,
                     const QWidget* widget, const QSize& usual);

std::optional<QRect> elementRectFor(QStyle::SubElement element, const QStyleOption& option,
                                    const QWidget* widget);

}  // namespace marquell::toolkit
