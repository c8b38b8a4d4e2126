// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/HouseStyle.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <algorithm>

#include "toolkit/look/ArrowPainting.h"
#include "toolkit/look/BarPainting.h"
#include "toolkit/look/ButtonPainting.h"
#include "toolkit/look/FieldPainting.h"
#include "toolkit/look/FocusRing.h"
#include "toolkit/look/HeaderPainting.h"
#include "toolkit/look/MenuPainting.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/PanePainting.h"
#include "toolkit/look/ScrollBarPainting.h"
#include "toolkit/look/StandardIcons.h"
#include "toolkit/look/StyleMeasures.h"
#include "toolkit/look/Surface.h"
#include "toolkit/look/ViewLook.h"

namespace marquell::toolkit {
namespace {

template <typename Element>
struct Painting {
    Element element;
    void (*paint)(const QStyleOption& option, QPainter& painter, const QWidget* widget);
};

constexpr Painting<QStyle::PrimitiveElement> primitives[] = {
    {QStyle::PE_Frame, paintFrame},
    {QStyle::PE_FrameTabWidget, paintFrame},
    {QStyle::PE_FrameGroupBox, paintGroupFrame},
    {QStyle::PE_FrameFocusRect, paintCurrentCell},
    {QStyle::PE_FrameLineEdit, paintNothing},
    {QStyle::PE_FrameTabBarBase, paintNothing},
    {QStyle::PE_FrameStatusBarItem, paintNothing},
    {QStyle::PE_FrameDefaultButton, paintNothing},
    {QStyle::PE_IndicatorButtonDropDown, paintNothing},
    {QStyle::PE_FrameMenu, paintMenuFrame},
    {QStyle::PE_PanelMenu, paintMenuGround},
    {QStyle::PE_PanelButtonCommand, paintPushButtonBox},
    {QStyle::PE_PanelButtonTool, paintToolButtonBox},
    {QStyle::PE_PanelLineEdit, paintField},
    {QStyle::PE_PanelTipLabel, paintToolTip},
    {QStyle::PE_IndicatorCheckBox, paintCheckBoxIndicator},
    {QStyle::PE_IndicatorItemViewItemCheck, paintCellIndicator},
    {QStyle::PE_IndicatorRadioButton, paintRadioIndicator},
    {QStyle::PE_IndicatorArrowUp, paintArrow<Qt::UpArrow>},
    {QStyle::PE_IndicatorArrowDown, paintArrow<Qt::DownArrow>},
    {QStyle::PE_IndicatorArrowLeft, paintArrow<Qt::LeftArrow>},
    {QStyle::PE_IndicatorArrowRight, paintArrow<Qt::RightArrow>},
    {QStyle::PE_IndicatorBranch, paintBranch},
};

constexpr Painting<QStyle::ControlElement> controls[] = {
    {QStyle::CE_PushButton, paintPushButton},
    {QStyle::CE_CheckBox, paintCheckBox},
    {QStyle::CE_RadioButton, paintRadioButton},
    {QStyle::CE_ComboBoxLabel, paintComboBoxLabel},
    {QStyle::CE_MenuItem, paintMenuItem},
    {QStyle::CE_MenuEmptyArea, paintMenuGround},
    {QStyle::CE_MenuScroller, paintMenuScroller},
    {QStyle::CE_MenuBarItem, paintMenuBarItem},
    {QStyle::CE_MenuBarEmptyArea, paintMenuBarGround},
    {QStyle::CE_Header, paintHeader},
    {QStyle::CE_HeaderEmptyArea, paintHeaderGround},
    {QStyle::CE_TabBarTabShape, paintTab},
    {QStyle::CE_TabBarTabLabel, paintTabLabel},
    {QStyle::CE_Splitter, paintSplitter},
    {QStyle::CE_ProgressBar, paintProgressBar},
};

constexpr Painting<QStyle::ComplexControl> complexControls[] = {
    {QStyle::CC_ComboBox, paintComboBox},
    {QStyle::CC_SpinBox, paintSpinBox},
    {QStyle::CC_ScrollBar, paintScrollBar},
    {QStyle::CC_Slider, paintSlider},
};

struct PartRects {
    QStyle::ComplexControl control;
    QRect (*rect)(QStyle::SubControl part, const QStyleOption& option, const QWidget* widget);
};

constexpr PartRects partRects[] = {
    {QStyle::CC_ComboBox, comboBoxPart},
    {QStyle::CC_SpinBox, spinBoxPart},
    {QStyle::CC_ScrollBar, scrollBarPart},
    {QStyle::CC_Slider, sliderPart},
};

/// False if the table has no entry: then Fusion paints.
template <typename Element, std::size_t size>
bool paintFrom(const Painting<Element> (&table)[size], Element element, const QStyleOption* option,
               QPainter* painter, const QWidget* widget) {
    const auto* entry = std::ranges::find(table, element, &Painting<Element>::element);
    if (entry == std::end(table) || option == nullptr) return false;
    painter->save();
    painter->setLayoutDirection(option->direction);
    entry->paint(*option, *painter, widget);
    painter->restore();
    return true;
}

bool showsHover(const QWidget& widget) {
    return dynamic_cast<const QAbstractButton*>(&widget) != nullptr ||
           dynamic_cast<const QAbstractSlider*>(&widget) != nullptr ||
           dynamic_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           dynamic_cast<const QComboBox*>(&widget) != nullptr ||
           dynamic_cast<const QLineEdit*>(&widget) != nullptr ||
           dynamic_cast<const QTabBar*>(&widget) != nullptr;
}

}  // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void HouseStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (showsHover(*widget)) widget->setAttribute(Qt::WA_Hover);
    // Names of files must not turn into tags. Tool tips have their own guard, toolTipText().
    auto* label = dynamic_cast<QLabel*>(widget);
    const bool isPlain = label != nullptr && !label->inherits("QTipLabel");
    if (isPlain && label->textFormat() == Qt::AutoText) label->setTextFormat(Qt::PlainText);
    if (dynamic_cast<QHeaderView*>(widget) != nullptr && !lookOf(widget).fontRole) {
        setFontRole(widget, FontRole::header);
    }
    if (widget->inherits("QComboBoxPrivateContainer")) widget->installEventFilter(this);
}

bool HouseStyle::eventFilter(QObject* watched, QEvent* event) {
    // The list of a popup is given the palette of the popup, but stands apart as menus do.
    if (event->type() == QEvent::Show) {
        setAppearance(static_cast<QWidget*>(watched), Appearance::system);
    }
    return QProxyStyle::eventFilter(watched, event);
}

void HouseStyle::polish(QPalette& palette) { palette = paletteOf(systemSurface()); }

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (paintFrom(primitives, element, option, painter, widget)) return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HouseStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    if (paintFrom(controls, element, option, painter, widget)) return;
    QProxyStyle::drawControl(element, option, painter, widget);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (paintFrom(complexControls, control, option, painter, widget)) return;
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    const auto measure = measureFor(metric);
    return measure ? *measure : QProxyStyle::pixelMetric(metric, option, widget);
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returnData) const {
    const auto habit = habitFor(hint, widget);
    return habit ? *habit : QProxyStyle::styleHint(hint, option, widget, returnData);
}

QSize HouseStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& contents, const QWidget* widget) const {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return option == nullptr ? usual : controlSizeFor(type, *option, contents, widget, usual);
}

QRect HouseStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    if (option != nullptr) {
        if (const auto rect = elementRectFor(element, *option, widget)) return *rect;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect HouseStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl subControl, const QWidget* widget) const {
    const auto* parts = std::ranges::find(partRects, control, &PartRects::control);
    if (parts == std::end(partRects) || option == nullptr) {
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    }
    return visualRect(option->direction, option->rect, parts->rect(subControl, *option, widget));
}

QIcon HouseStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                               const QWidget* widget) const {
    const auto direction = widget != nullptr ? widget->layoutDirection() : Qt::LeftToRight;
    const auto icon = standardIconFor(standardIcon, direction);
    return icon ? *icon : QProxyStyle::standardIcon(standardIcon, option, widget);
}

void furnish() {
    QApplication::setStyle(new HouseStyle);  // the application owns it
    setSystemDark(systemSurface() == Surface::dark);
    setInterfaceFonts(QGuiApplication::font(), QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QCoreApplication* application = QCoreApplication::instance();
    application->installEventFilter(new FocusRing(application));
}

}  // namespace marquell::toolkit
