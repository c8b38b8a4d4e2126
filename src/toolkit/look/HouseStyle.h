// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

#include "toolkit/look/ButtonRole.h"

namespace marquell::toolkit {

/// The one style of the program, over Fusion: it draws every control in the colours of the surface
/// that the control lies on (Surface.h) and in the sizes of metrics(), so that the bricks and the
/// dialogs of Qt look alike.
class HouseStyle : public QProxyStyle {
public:
    HouseStyle();

    void polish(QWidget* widget) override;
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
    bool eventFilter(QObject* watched, QEvent* event) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                       const QWidget* widget) const override;
};

/// Sets the style, palette, fonts and the focus ring. To be called once, before the first widget.
void furnish();

}  // namespace marquell::toolkit
