// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/RowButtonBrick.h"

#include <QKeyEvent>
#include <QStyle>

#include "toolkit/look/ControlBox.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/ViewLook.h"
#include "toolkit/tables/CellTable.h"

namespace marquell::toolkit {
namespace {

constexpr double endGap = 4;  // points, behind the button

/// Whether the key may lead to another row, or select more of them.
bool leadsToRows(const QKeyEvent& event) {
    const bool isArrowOrPage = event.key() >= Qt::Key_Home && event.key() <= Qt::Key_PageDown;
    return isArrowOrPage || !event.text().isEmpty();
}

}  // namespace

RowButtonBrick::RowButtonBrick(CellTable& table, QWidget* viewport)
    : PushButtonBrick(viewport), table_(table) {
    setFocusPolicy(Qt::ClickFocus);
    setCursor(Qt::ArrowCursor);
}

int RowButtonBrick::roomInRow() {
    return metrics().controlHeight(ControlSize::small) + metrics().px(endGap);
}

void RowButtonBrick::show(int row, int column, const RowButton& button, const QRect& cellRect) {
    row_ = row;
    column_ = column;
    if (!shown_ || shown_->name != button.name || shown_->glyph != button.glyph) {
        setGlyph(button.glyph, button.name);
        shown_ = RowButton{button.glyph, button.name, {}};
    }
    const QSize size = sizeHint();
    const QRect place(cellRect.right() + 1 - roomInRow(),
                      cellRect.top() + (cellRect.height() - size.height()) / 2, size.width(),
                      size.height());
    setGeometry(QStyle::visualRect(layoutDirection(), cellRect, place));
    setVisible(true);
}

void RowButtonBrick::setOnSelection(bool onSelection) {
    // The selection is as blue as the column, so the button's colours there are those of the
    // column.
    const auto appearance = onSelection ? std::optional(Appearance::column) : std::nullopt;
    if (lookOf(this).appearance == appearance) return;
    changeLookOf(this).appearance = appearance;
    update();
}

double RowButtonBrick::focusRingRadius() const { return controlRadius(ControlSize::mini); }

void RowButtonBrick::focusInEvent(QFocusEvent* event) {
    PushButtonBrick::focusInEvent(event);
    switch (event->reason()) {
        case Qt::MouseFocusReason:
            return table_.setFocus(Qt::MouseFocusReason);
        case Qt::ActiveWindowFocusReason:
        case Qt::PopupFocusReason:
            return;  // it had the keyboard before
        default:
            table_.selectRows({{row_, row_}});
    }
}

void RowButtonBrick::keyPressEvent(QKeyEvent* event) {
    const int toRow = isRightToLeft() ? Qt::Key_Right : Qt::Key_Left;
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (isPlain && (event->key() == toRow || event->key() == Qt::Key_Escape)) {
        table_.setFocus(Qt::OtherFocusReason);
    } else if (isPlain && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        table_.focusButtonOf(row_ + (event->key() == Qt::Key_Up ? -1 : 1));
    } else if (event->key() == Qt::Key_Space) {
        PushButtonBrick::keyPressEvent(event);
    } else {
        if (leadsToRows(*event)) table_.setFocus(Qt::OtherFocusReason);
        event->ignore();  // the table's
    }
}

bool RowButtonBrick::focusNextPrevChild(bool next) {
    // The button has no place among the stops of the tabulator, the table has.
    table_.setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return !next || table_.leaveForwards();
}

}  // namespace marquell::toolkit
