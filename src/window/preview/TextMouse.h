// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPoint>

#include "window/preview/TextCaret.h"

namespace marquell::window {

/// What presses, drags and clicks in a row do to the selection of a text: a drag begun by a double
/// click selects whole words, one begun by a third click whole lines.
class TextMouse {
public:
    /// `offset`: of the boundary of a character that is nearest to the press.
    void press(const platform::LinedText& text, TextCaret& caret, std::size_t offset,
               const QMouseEvent& event);
    void doubleClick(const platform::LinedText& text, TextCaret& caret, std::size_t offset,
                     const QMouseEvent& event);
    /// Nothing unless the button was pressed in the text.
    void dragTo(const platform::LinedText& text, TextCaret& caret, std::size_t offset);
    void release() { isDown_ = false; }

    bool isDown() const { return isDown_; }

private:
    enum class Unit { character, word, line };

    static TextRange unitAt(const platform::LinedText& text, Unit unit, std::size_t offset);
    void begin(const platform::LinedText& text, TextCaret& caret, Unit unit, std::size_t offset);

    bool isDown_ = false;
    Unit unit_ = Unit::character;
    TextRange first_;  // what the press selected
    QElapsedTimer sinceDoubleClick_;
    QPoint doubleClickedAt_;
};

}  // namespace marquell::window
