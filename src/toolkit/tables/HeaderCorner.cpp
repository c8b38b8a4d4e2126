// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/HeaderCorner.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace marquell::toolkit {

HeaderCorner::HeaderCorner(const QHeaderView& header, QWidget* parent)
    : QWidget(parent), header_(header) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize HeaderCorner::sizeHint() const {
    return {style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this),
            header_.sizeHint().height()};
}

void HeaderCorner::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawControl(QStyle::CE_HeaderEmptyArea, &option, &painter, this);
}

}  // namespace marquell::toolkit
