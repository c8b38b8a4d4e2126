// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/PopUpItemDelegate.h"

#include <QComboBox>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionMenuItem>

#include "toolkit/look/ColorRole.h"

namespace marquell::toolkit {
namespace {

constexpr double textMargin = 9;  // as in the style's menus

bool isSeparator(const QModelIndex& index) {
    return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
}

QStyleOptionMenuItem menuItemFor(const QStyleOptionViewItem& option, const QModelIndex& index) {
    QStyleOptionMenuItem item;
    item.rect = option.rect;
    item.state = option.state;
    item.direction = option.direction;
    item.palette = option.palette;
    item.fontMetrics = option.fontMetrics;
    item.menuItemType =
        isSeparator(index) ? QStyleOptionMenuItem::Separator : QStyleOptionMenuItem::Normal;
    item.checkType = QStyleOptionMenuItem::NotCheckable;
    item.menuRect = option.rect;
    item.font = option.font;
    if (!(index.flags() & Qt::ItemIsEnabled)) item.state &= ~QStyle::State_Enabled;
    return item;
}

TwoPartColors colorsFor(const QStyleOption& item, const QWidget* list) {
    if (!(item.state & QStyle::State_Enabled)) {
        const QColor disabled = color(ColorRole::disabledText, list);
        return {disabled, disabled};
    }
    const bool isSelected = item.state & QStyle::State_Selected;
    return {color(isSelected ? ColorRole::selectionText : ColorRole::text, list),
            color(isSelected ? ColorRole::selectionSecondaryText : ColorRole::secondaryText, list)};
}

}  // namespace

PopUpItemDelegate::PopUpItemDelegate(QComboBox* popup)
    : QAbstractItemDelegate(popup), popup_(popup) {}

TwoPartText PopUpItemDelegate::textOf(const QModelIndex& index) {
    return {index.data(Qt::DisplayRole).toString(), index.data(subtitleRole).toString()};
}

void PopUpItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const QStyleOptionMenuItem item = menuItemFor(option, index);
    painter->save();
    painter->setClipRect(option.rect);
    // The list stands for a menu, as which the style draws the row; the text is of two parts.
    popup_->style()->drawControl(QStyle::CE_MenuItem, &item, painter, option.widget);
    if (!isSeparator(index)) {
        const int margin = metrics().px(textMargin);
        drawTwoPartText(*painter, QRectF(option.rect).adjusted(margin, 0, -margin, 0),
                        textOf(index), TwoPartFonts(controlSizeOf(popup_)),
                        colorsFor(item, option.widget));
    }
    painter->restore();
}

QSize PopUpItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    const QStyleOptionMenuItem item = menuItemFor(option, index);
    const double text = widthOf(textOf(index), TwoPartFonts(controlSizeOf(popup_)));
    const QSize contents(static_cast<int>(text), 0);
    return popup_->style()->sizeFromContents(QStyle::CT_MenuItem, &item, contents, popup_);
}

}  // namespace marquell::toolkit
