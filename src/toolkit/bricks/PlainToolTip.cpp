// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/PlainToolTip.h"

#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {

void setPlainToolTip(QWidget& view, const QString& text) {
    view.setToolTip(toolTipText(text));
    view.setAccessibleDescription(text);
}

}  // namespace marquell::toolkit
