// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/StyleMeasures.h"

#include <algorithm>

#include "toolkit/look/ButtonPainting.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/FieldPainting.h"
#include "toolkit/look/HeaderPainting.h"
#include "toolkit/look/MenuPainting.h"
#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

struct Length {
    QStyle::PixelMetric metric;
    double points;
};

constexpr Length lengths[] = {
    {QStyle::PM_ScrollBarExtent, 10},
    {QStyle::PM_ScrollBarSliderMin, 24},
    {QStyle::PM_ScrollView_ScrollBarSpacing, 0},
    {QStyle::PM_IndicatorWidth, 16},
    {QStyle::PM_IndicatorHeight, 16},
    {QStyle::PM_ExclusiveIndicatorWidth, 16},
    {QStyle::PM_ExclusiveIndicatorHeight, 16},
    {QStyle::PM_CheckBoxLabelSpacing, 8},
    {QStyle::PM_RadioButtonLabelSpacing, 8},
    {QStyle::PM_MenuHMargin, 0},
    {QStyle::PM_MenuVMargin, 4},
    {QStyle::PM_MenuScrollerHeight, 16},
    {QStyle::PM_MenuBarPanelWidth, 0},
    {QStyle::PM_MenuBarHMargin, 8},
    {QStyle::PM_MenuBarVMargin, 1},
    {QStyle::PM_MenuBarItemSpacing, 0},
    {QStyle::PM_MenuButtonIndicator, 25},
    {QStyle::PM_SliderThickness, 20},
    {QStyle::PM_SliderControlThickness, 16},
    {QStyle::PM_SliderLength, 16},
    {QStyle::PM_SliderTickmarkOffset, 4},
    {QStyle::PM_TabBarTabHSpace, 24},
    {QStyle::PM_TabBarTabShiftHorizontal, 0},
    {QStyle::PM_TabBarTabShiftVertical, 0},
    {QStyle::PM_TabBarBaseOverlap, 1},
    {QStyle::PM_ButtonShiftHorizontal, 0},
    {QStyle::PM_ButtonShiftVertical, 0},
    {QStyle::PM_ButtonIconSize, 16},
    {QStyle::PM_SmallIconSize, 16},
    {QStyle::PM_ListViewIconSize, 16},
    {QStyle::PM_ToolTipLabelFrameWidth, 6},
};

// Lines stay as thin as can be, however large the rest.
constexpr QStyle::PixelMetric lineWidths[] = {QStyle::PM_DefaultFrameWidth,
                                              QStyle::PM_MenuPanelWidth, QStyle::PM_SplitterWidth};

struct Habit {
    QStyle::StyleHint hint;
    int answer;
};

constexpr Habit habits[] = {
    {QStyle::SH_EtchDisabledText, 0},
    {QStyle::SH_DitherDisabledText, 0},
    {QStyle::SH_UnderlineShortcut, 0},
    {QStyle::SH_Menu_Scrollable, 1},
    {QStyle::SH_Menu_SupportsSections, 0},
    {QStyle::SH_ItemView_ShowDecorationSelected, 1},
    {QStyle::SH_DialogButtonBox_ButtonsHaveIcons, 0},
    {QStyle::SH_ToolTipLabel_Opacity, 255},
    {QStyle::SH_Widget_Animation_Duration, 0},
};

QSize pushButtonSize(const QSize& contents, const QWidget* widget) {
    const ControlSize size = controlSizeOf(widget);
    const int padding = metrics().px(size == ControlSize::regular ? 16 : 10);
    return {contents.width() + 2 * padding,
            std::max(contents.height(), metrics().controlHeight(size))};
}

QRect lineEditContents(const QStyleOption& option, const QWidget* widget) {
    const auto& frame = static_cast<const QStyleOptionFrame&>(option);
    if (frame.lineWidth <= 0) return option.rect;
    const int inset = popupPadding(controlSizeOf(widget)) - lineEditMargin;
    return option.rect.adjusted(inset, 1, -inset, -1);
}

}  // namespace

std::optional<int> measureFor(QStyle::PixelMetric metric) {
    if (std::ranges::find(lineWidths, metric) != std::end(lineWidths)) return 1;
    const auto* length = std::ranges::find(lengths, metric, &Length::metric);
    if (length == std::end(lengths)) return std::nullopt;
    return metrics().px(length->points);
}

std::optional<int> habitFor(QStyle::StyleHint hint, const QWidget* widget) {
    if (hint == QStyle::SH_Table_GridLineColor) {
        return static_cast<int>(color(ColorRole::separator, widget).rgba());
    }
    const auto* habit = std::ranges::find(habits, hint, &Habit::hint);
    if (habit == std::end(habits)) return std::nullopt;
    return habit->answer;
}

QSize controlSizeFor(QStyle::ContentsType type, const QStyleOption& option, const QSize& contents,
                     const QWidget* widget, const QSize& usual) {
    const int height = metrics().controlHeight(controlSizeOf(widget));
    switch (type) {
        case QStyle::CT_PushButton:
            return pushButtonSize(contents, widget);
        case QStyle::CT_CheckBox:
        case QStyle::CT_RadioButton:
            return checkBoxSize(static_cast<const QStyleOptionButton&>(option), widget);
        case QStyle::CT_ComboBox:
            return {contents.width() + popupPadding(controlSizeOf(widget)) +
                        popupFieldWidth(controlSizeOf(widget)),
                    height};
        case QStyle::CT_SpinBox:
            return {
                contents.width() + popupPadding(controlSizeOf(widget)) + spinButtonsWidth(option),
                height};
        case QStyle::CT_LineEdit:
            return {contents.width() + 2 * popupPadding(controlSizeOf(widget)), height};
        case QStyle::CT_ToolButton:
            return {contents.width() + metrics().px(8),
                    std::max(contents.height() + metrics().px(4), height)};
        case QStyle::CT_TabBarTab:
            return {contents.width(), height};
        case QStyle::CT_MenuItem:
            return menuItemSize(static_cast<const QStyleOptionMenuItem&>(option), contents, widget);
        case QStyle::CT_MenuBarItem:
            return {contents.width() + 2 * metrics().px(8), metrics().rowHeight()};
        case QStyle::CT_MenuBar:
            return {contents.width(), metrics().rowHeight() + metrics().px(4)};
        case QStyle::CT_HeaderSection:
            return headerSectionSize(static_cast<const QStyleOptionHeader&>(option));
        case QStyle::CT_ItemViewItem:
            return usual.expandedTo({0, metrics().rowHeight()});
        default:
            return usual;
    }
}

std::optional<QRect> elementRectFor(QStyle::SubElement element, const QStyleOption& option,
                                    const QWidget* widget) {
    if (element != QStyle::SE_LineEditContents) return std::nullopt;
    return lineEditContents(option, widget);
}

}  // namespace marquell::toolkit
