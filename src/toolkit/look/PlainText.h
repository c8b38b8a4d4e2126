// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace marquell::toolkit {

/// A text as the title of a button, check box, menu item or tab: an "&" stays one, and marks no
/// shortcut.
QString titleText(const QString& text);

/// The text behind a title.
QString textOfTitle(const QString& title);

/// A text as a tool tip: shown as it stands, whatever tags it seems to hold, in lines of bearable
/// length. Empty for an empty text.
QString toolTipText(const QString& text);

}  // namespace marquell::toolkit
