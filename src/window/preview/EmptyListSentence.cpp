// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/EmptyListSentence.h"

#include <QPainter>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"

namespace marquell::window {
namespace {

constexpr double sideInset = 16;  // points

}  // namespace

EmptyListSentence::EmptyListSentence(const QAbstractScrollArea& list) : list_(list) {
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    toolkit::setFontRole(this, toolkit::FontRole::regular);
}

void EmptyListSentence::paintEvent(QPaintEvent* /*event*/) {
    const QWidget& rows = *list_.viewport();
    const QRect room(mapFromGlobal(rows.mapToGlobal(QPoint(0, 0))), rows.size());
    const int inset = toolkit::metrics().px(sideInset);
    QPainter painter(this);
    painter.setPen(toolkit::color(toolkit::ColorRole::secondaryText, this));
    painter.drawText(room.adjusted(inset, 0, -inset, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     text());
}

}  // namespace marquell::window
