// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellDelegate.h"

#include <QPainter>
#include <QStyle>

#include "toolkit/look/Metrics.h"
#include "toolkit/tables/CellText.h"
#include "toolkit/tables/RowButtonBrick.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double textRight = 4;
constexpr double gapBeforeButton = 8;

ColorRole groundOf(const QStyleOptionViewItem& option) {
    if (option.state & QStyle::State_Selected) return ColorRole::selection;
    const bool isAlternate = option.features & QStyleOptionViewItem::Alternate;
    return isAlternate ? ColorRole::alternateBase : ColorRole::base;
}

}  // namespace

CellDelegate::CellDelegate(CellStore& cells, QObject* parent)
    : QAbstractItemDelegate(parent), cells_(cells) {}

QRect CellDelegate::textRect(const QRect& rect, const TableCellView& cell,
                             Qt::LayoutDirection direction) const {
    const int right = cell.button ? RowButtonBrick::roomInRow() + metrics().px(gapBeforeButton)
                                  : metrics().px(textRight);
    const QRect text = rect.adjusted(metrics().px(textInset_), 0, -right, 0);
    return QStyle::visualRect(direction, rect, text);
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const auto cell = cells_.cell(index.row(), index.column());
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, color(groundOf(option), option.widget));
    cell->setHighlighted(option.state & QStyle::State_Selected);
    painter->setLayoutDirection(option.direction);
    drawCellLabel(*painter, textRect(option.rect, *cell, option.direction), cell->nameLabel,
                  option.widget);
    painter->restore();
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                             const QModelIndex& /*index*/) const {
    return {0, metrics().rowHeight()};
}

}  // namespace marquell::toolkit
