// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/CutTextToolTip.h"

#include <QHelpEvent>
#include <QToolTip>

#include "toolkit/look/PlainText.h"

namespace marquell::toolkit {

bool showCutText(QWidget* view, QEvent* event, const QString& whole, double textWidth,
                 double room) {
    if (textWidth <= room || !view->toolTip().isEmpty()) return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipText(whole), view);
    return true;
}

}  // namespace marquell::toolkit
