// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ListBrick.h"

#include <QStyleOptionComboBox>

#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

void ListBrick::showPopup() {
    callIfSet(buttonPressFunction);
    prepareList();
    QComboBox::showPopup();
}

const DrawPair& ListBrick::currentDrawPair() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const bool isOpen = option.state & QStyle::State_On;
    return isOpen ? highlightedDrawing : normalDrawing;
}

}  // namespace marquell::toolkit
