// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QDropEvent>
#include <QObject>
#include <QPoint>

#include "toolkit/tables/CellTable.h"

namespace marquell::toolkit {

/// A drag over a table: the gap between rows that it is nearest to, whether it may be dropped
/// there, and the scrolling near the edges.
class RowDrops : public QObject {
public:
    /// Both have to outlive it.
    RowDrops(CellTable& table, CellTableSource& source);

    /// Shows the gap, and answers the event: not accepted where nothing may be dropped.
    void follow(QDropEvent& event);
    void drop(QDropEvent& event);
    void end();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// What a drop at the pointer would do.
    struct Offer {
        Qt::DropAction action;
        int row;         // where it would go
        int nearestRow;  // where the pointer is
    };
    Offer offerAt(const QDropEvent& event) const;
    int nearestGap() const;
    int scrollStep() const;
    void scroll();

    CellTable& table_;
    CellTableSource& source_;
    QPoint pointer_;           // in the viewport
    bool isAtNearest_ = true;  // the gap shown is the one at the pointer
    QBasicTimer scrolling_;
};

}  // namespace marquell::toolkit
