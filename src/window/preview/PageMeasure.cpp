// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/PageMeasure.h"

#include <algorithm>
#include <cmath>

#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::window {
namespace {

constexpr double rowHeightInPoints = 15;
constexpr double marginInPoints = 8;
constexpr double tabDistanceInPoints = 36;

}  // namespace

PageMeasure::PageMeasure()
    : font(toolkit::metrics().font(toolkit::FontRole::monospaced)),
      margin(toolkit::metrics().px(marginInPoints)),
      rowHeight(std::max(toolkit::metrics().px(rowHeightInPoints),
                         static_cast<int>(std::ceil(QFontMetricsF(font).height())))),
      baseline(rowHeight / 2.0 + toolkit::baselineOffset(QFontMetricsF(font))),
      tabDistance(toolkit::metrics().px(tabDistanceInPoints)),
      averageWidth(QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'))),
      advances(font, tabDistance) {}

}  // namespace marquell::window
