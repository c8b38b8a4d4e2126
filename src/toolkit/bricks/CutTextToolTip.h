// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QString>
#include <QWidget>

namespace marquell::toolkit {

/// Shows the whole of a text as tool tip where `event`, a QEvent::ToolTip, asks for it, if the text
/// is cut and the view has no tool tip of its own. True if the event is dealt with. Widths in px.
bool showCutText(QWidget* view, QEvent* event, const QString& whole, double textWidth, double room);

}  // namespace marquell::toolkit
