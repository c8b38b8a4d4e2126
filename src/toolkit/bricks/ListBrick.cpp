// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ListBrick.h"

#include <QPointer>
#include <QStyleOptionComboBox>

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

void ListBrick::showPopup() {
    const QPointer<ListBrick> self(this);  // which the functions may end
    callIfSet(buttonPressFunction);
    if (self) prepareList();
    if (self) QComboBox::showPopup();
}

const DrawPair& ListBrick::currentDrawPair() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const bool isOpen = option.state & QStyle::State_On;
    return isOpen ? highlightedDrawing : normalDrawing;
}

}  // namespace marquell::toolkit
