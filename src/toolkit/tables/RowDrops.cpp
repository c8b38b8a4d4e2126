// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/RowDrops.h"

#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>

#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

constexpr double scrollMargin = 16;  // points from an edge
constexpr int scrollInterval = 30;   // ms

}  // namespace

RowDrops::RowDrops(CellTable& table, CellTableSource& source) : table_(table), source_(source) {}

int RowDrops::nearestGap() const {
    const int rowHeight = table_.verticalHeader()->defaultSectionSize();
    const int y = pointer_.y() + table_.verticalScrollBar()->value();
    return std::clamp((y + rowHeight / 2) / rowHeight, 0, table_.model()->rowCount());
}

RowDrops::Offer RowDrops::offerAt(const QDropEvent& event) const {
    const int nearest = nearestGap();
    Offer offer{Qt::IgnoreAction, nearest, nearest};
    offer.action = source_.validateDrop({*event.mimeData(), event.source()}, offer.row);
    // An action that the other side doesn't offer could be taken for a move of its files.
    if (!(event.possibleActions() & offer.action)) offer.action = Qt::IgnoreAction;
    return offer;
}

void RowDrops::follow(QDropEvent& event) {
    pointer_ = event.position().toPoint();
    const Offer offer = offerAt(event);
    if (offer.action == Qt::IgnoreAction) {
        end();
        event.ignore();
        return;
    }
    isAtNearest_ = offer.row == offer.nearestRow;
    table_.showDropGap(offer.row);
    if (isAtNearest_ && scrollStep() != 0 && !scrolling_.isActive()) {
        scrolling_.start(scrollInterval, this);
    }
    event.setDropAction(offer.action);
    event.accept();
}

void RowDrops::drop(QDropEvent& event) {
    pointer_ = event.position().toPoint();
    const Offer offer = offerAt(event);
    end();
    const bool isTaken = offer.action != Qt::IgnoreAction &&
                         source_.acceptDrop({*event.mimeData(), event.source()}, offer.row);
    if (!isTaken) {
        event.ignore();
        return;
    }
    event.setDropAction(offer.action);
    event.accept();
}

void RowDrops::end() {
    scrolling_.stop();
    table_.showDropGap(-1);
}

int RowDrops::scrollStep() const {
    const int margin = metrics().px(scrollMargin);
    const int below = pointer_.y() - (table_.viewport()->height() - margin);
    const int above = margin - pointer_.y();
    if (above > 0) return -above;
    return std::max(below, 0);
}

void RowDrops::scroll() {
    QScrollBar* bar = table_.verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + scrollStep());
    if (!isAtNearest_ || bar->value() == before) {
        scrolling_.stop();
    } else {
        table_.showDropGap(nearestGap());
    }
}

void RowDrops::timerEvent(QTimerEvent* event) {
    if (event->timerId() == scrolling_.timerId()) scroll();
}

}  // namespace marquell::toolkit
