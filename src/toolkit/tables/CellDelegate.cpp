// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellDelegate.h"

#include <QPainter>
#include <QStyle>
#include <cmath>

#include "toolkit/look/Metrics.h"
#include "toolkit/tables/CellText.h"
#include "toolkit/tables/RowButtonBrick.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double textRight = 4;
constexpr double gapBeforeButton = 8;

constexpr int largestBox = 10'000;  // px; any will do

ColorRole groundOf(const QStyleOptionViewItem& option) {
    if (option.state & QStyle::State_Selected) return ColorRole::selection;
    const bool isAlternate = option.features & QStyleOptionViewItem::Alternate;
    return isAlternate ? ColorRole::alternateBase : ColorRole::base;
}

void drawSeparator(QPainter& painter, const QStyleOptionViewItem& option) {
    const int line = metrics().px(1);
    const QRect& cell = option.rect;
    painter.fillRect(cell.left(), cell.center().y(), cell.width(), line,
                     color(ColorRole::headerLine, option.widget));
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
    if (!(index.flags() & Qt::ItemIsSelectable)) drawSeparator(*painter, option);
    drawCellLabel(*painter, textRect(option.rect, *cell, option.direction), cell->nameLabel,
                  option.widget);
    painter->restore();
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto cell = cells_.cell(index.row(), index.column());
    const QRect box(0, 0, largestBox, metrics().rowHeight());
    const int beside = box.width() - textRect(box, *cell, option.direction).width();
    return {beside + static_cast<int>(std::ceil(naturalWidth(cell->nameLabel))), box.height()};
}

}  // namespace marquell::toolkit
