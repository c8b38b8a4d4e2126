// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/ListTable.h"

#include <QEvent>
#include <QScrollBar>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/look/Metrics.h"

namespace marquell::lists {
namespace {

constexpr double textInset = 8;  // points

}  // namespace

ListTable::ListTable(toolkit::CellTableSource& source) : CellTable(source) {
    setTextInset(textInset);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QRectF ListTable::focusRingRect() const {
    const int frame = toolkit::metrics().px(1);
    return rect().adjusted(-frame, -frame, frame, frame);
}

void ListTable::changeEvent(QEvent* event) {
    CellTable::changeEvent(event);
    if (event->type() == QEvent::StyleChange) toolkit::callIfSet(metricsDidChange);
}

void ListTable::updateGeometries() {
    CellTable::updateGeometries();
    // Nobody scrolls by what the frame takes of the last row.
    QScrollBar* bar = verticalScrollBar();
    if (bar->maximum() <= toolkit::metrics().px(2)) bar->setRange(0, 0);
}

}  // namespace marquell::lists
