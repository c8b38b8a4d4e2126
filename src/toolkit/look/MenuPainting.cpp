// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/MenuPainting.h"

#include <QComboBox>
#include <QPainter>
#include <algorithm>

#include "toolkit/look/ArrowPainting.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/PlainText.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double textInset = 9;
constexpr double separatorBand = 9;
constexpr double separatorInset = 8;
constexpr double checkColumn = 18;
constexpr double iconGap = 8;
constexpr double shortcutGap = 24;
constexpr double arrowRoom = 20;

/// Popups draw the rows of their lists as rows of a menu.
bool isRowOfPopup(const QWidget* widget) {
    return dynamic_cast<const QComboBox*>(widget) != nullptr;
}

/// The list of a popup does not lie where the popup lies.
Surface menuSurfaceOf(const QWidget* widget) {
    return isRowOfPopup(widget) ? systemSurface() : surfaceOf(widget);
}

/// The room for check marks and images before the text, which all rows of a menu share.
int columnBeforeText(const QStyleOptionMenuItem& item, const QWidget* widget) {
    const int check = item.menuHasCheckableItems ? metrics().px(checkColumn) : 0;
    // Popups always claim to have images.
    const bool hasImages = item.maxIconWidth > 0 && !(isRowOfPopup(widget) && item.icon.isNull());
    return hasImages ? std::max(check, item.maxIconWidth + metrics().px(iconGap)) : check;
}

struct ItemColors {
    QColor text, shortcut;
};

ItemColors colorsOf(const QStyleOption& option, Surface surface) {
    if (!(option.state & QStyle::State_Enabled)) {
        const QColor disabled = color(ColorRole::disabledText, surface);
        return {disabled, disabled};
    }
    const bool selected = option.state & QStyle::State_Selected;
    const auto pick = [&](ColorRole ofSelected, ColorRole usual) {
        return color(selected ? ofSelected : usual, surface);
    };
    return {pick(ColorRole::selectionText, ColorRole::text),
            pick(ColorRole::selectionSecondaryText, ColorRole::secondaryText)};
}

void drawSeparator(QPainter& painter, const QRectF& row, Surface surface) {
    const double inset = metrics().px(separatorInset);
    const double top = row.y() + (row.height() - 1) / 2;
    const QRectF line(snapped(painter, QPointF(row.x() + inset, top)),
                      QSizeF(row.width() - 2 * inset, hairline(painter)));
    painter.fillRect(line, color(ColorRole::windowLine, surface));
}

void drawMark(QPainter& painter, const QStyleOptionMenuItem& item, const QRectF& box,
              const QColor& color) {
    if (item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked) {
        drawGlyph(painter, Glyph::check, box, color);
    } else if (!item.icon.isNull()) {
        const QIcon::Mode mode =
            item.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
        item.icon.paint(&painter, box.toRect(), Qt::AlignCenter, mode);
    }
}

void drawRow(QPainter& painter, const QStyleOptionMenuItem& item, int column,
             const ItemColors& colors) {
    const auto mirrored = [&](const QRect& rect) {
        return QStyle::visualRect(item.direction, item.rect, rect);
    };
    const int inset = metrics().px(textInset);
    const QRect line = item.rect.adjusted(inset, 0, -inset, 0);
    const QRect mark(line.x(), line.y(), std::max(column - metrics().px(iconGap), 0),
                     line.height());
    drawMark(painter, item, mirrored(mark), colors.text);

    const qsizetype tab = item.text.indexOf(u'\t');
    painter.setFont(item.font);
    painter.setPen(colors.text);
    const QRectF textBox = mirrored(line.adjusted(column, 0, 0, 0));
    drawTextLine(painter, textBox, textOfTitle(item.text.left(tab)));
    painter.setPen(colors.shortcut);
    if (tab >= 0) drawTextLine(painter, textBox, item.text.mid(tab + 1), Qt::AlignTrailing);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const bool leftwards = item.direction == Qt::RightToLeft;
        const QRect arrow = line.adjusted(line.width() - metrics().px(8), 0, 0, 0);
        drawChevron(painter, leftwards ? Qt::LeftArrow : Qt::RightArrow, mirrored(arrow),
                    colors.text);
    }
}

}  // namespace

void paintMenuGround(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    painter.fillRect(option.rect, color(ColorRole::menu, widget));
}

void paintMenuFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    drawBox(painter, option.rect, 0, QColor(), color(ColorRole::menuBorder, widget));
}

void paintMenuItem(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& item = static_cast<const QStyleOptionMenuItem&>(option);
    const Surface surface = menuSurfaceOf(widget);
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool selected = enabled && (option.state & QStyle::State_Selected);
    painter.fillRect(option.rect,
                     color(selected ? ColorRole::selection : ColorRole::menu, surface));
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(painter, option.rect, surface);
        return;
    }
    drawRow(painter, item, columnBeforeText(item, widget), colorsOf(option, surface));
}

void paintMenuScroller(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    paintMenuGround(option, painter, widget);
    const bool down = option.state & QStyle::State_DownArrow;
    drawChevron(painter, down ? Qt::DownArrow : Qt::UpArrow, option.rect,
                color(ColorRole::text, widget));
}

void paintMenuBarItem(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const auto& item = static_cast<const QStyleOptionMenuItem&>(option);
    paintMenuBarGround(option, painter, widget);
    const bool open = option.state & QStyle::State_Sunken;
    const bool selected = option.state & QStyle::State_Selected;
    if (open || selected) {
        const QColor fill = color(open ? ColorRole::selection : ColorRole::glyphHover, widget);
        drawBox(painter, option.rect, 4 * metrics().scale(), fill, QColor());
    }
    ColorRole role = open ? ColorRole::selectionText : ColorRole::text;
    if (!(option.state & QStyle::State_Enabled)) role = ColorRole::disabledText;
    painter.setPen(color(role, widget));
    drawTextLine(painter, option.rect, textOfTitle(item.text), Qt::AlignHCenter);
}

void paintMenuBarGround(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    painter.fillRect(option.rect, color(ColorRole::window, widget));
    if (widget == nullptr) return;
    const double line = hairline(painter);
    const QRectF bar(widget->rect());
    painter.fillRect(QRectF(bar.x(), bar.bottom() - line, bar.width(), line),
                     color(ColorRole::windowLine, widget));
}

QSize menuItemSize(const QStyleOptionMenuItem& item, const QSize& contents, const QWidget* widget) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        return {metrics().px(2 * separatorInset), metrics().px(separatorBand)};
    }
    int width = contents.width() + 2 * metrics().px(textInset) + columnBeforeText(item, widget);
    if (item.text.contains(u'\t')) width += metrics().px(shortcutGap);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) width += metrics().px(arrowRoom);
    return {width, std::max(metrics().rowHeight(), item.maxIconWidth)};
}

}  // namespace marquell::toolkit
