// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>

#include "window/preview/TextCaret.h"

namespace marquell::window {

/// Whether the key moves the caret, with or without the selection.
bool isCaretKey(const QKeyEvent& key);

/// Whether the page is to move along with the caret.
bool isPageKey(const QKeyEvent& key);

/// Does what a caret key means. `pageRows`: how many rows a page has.
void moveCaretByKey(const QKeyEvent& key, TextGeometry& geometry, std::size_t pageRows,
                    TextCaret& caret);

}  // namespace marquell::window
