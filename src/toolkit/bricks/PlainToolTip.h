// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace marquell::toolkit {

/// Gives a view a tool tip that shows a text as it stands. Assistive programs are told the bare
/// text as the view's description; Qt would tell them the tool tip with its markup.
void setPlainToolTip(QWidget& view, const QString& text);

}  // namespace marquell::toolkit
