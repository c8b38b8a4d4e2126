// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextMouse.h"

#include <QApplication>

#include "window/preview/TextSteps.h"

namespace marquell::window {

void TextMouse::press(const platform::LinedText& text, TextCaret& caret, std::size_t offset,
                      const QMouseEvent& event) {
    const QPoint moved = event.position().toPoint() - doubleClickedAt_;
    const bool isThird = sinceDoubleClick_.isValid() &&
                         sinceDoubleClick_.elapsed() < QApplication::doubleClickInterval() &&
                         moved.manhattanLength() < QApplication::startDragDistance();
    sinceDoubleClick_.invalidate();
    if (isThird) return begin(text, caret, Unit::line, offset);
    if (!event.modifiers().testFlag(Qt::ShiftModifier)) {
        return begin(text, caret, Unit::character, offset);
    }
    begin(text, caret, Unit::character, caret.anchor());
    dragTo(text, caret, offset);
}

void TextMouse::doubleClick(const platform::LinedText& text, TextCaret& caret, std::size_t offset,
                            const QMouseEvent& event) {
    begin(text, caret, Unit::word, offset);
    sinceDoubleClick_.start();
    doubleClickedAt_ = event.position().toPoint();
}

void TextMouse::begin(const platform::LinedText& text, TextCaret& caret, Unit unit,
                      std::size_t offset) {
    isDown_ = true;
    unit_ = unit;
    first_ = unitAt(text, unit, offset);
    caret.select(first_);
}

void TextMouse::dragTo(const platform::LinedText& text, TextCaret& caret, std::size_t offset) {
    if (!isDown_) return;
    const TextRange last = unitAt(text, unit_, offset);
    if (offset < first_.start) {
        caret.moveTo(first_.end);
        caret.moveTo(last.start, TextCaret::Selection::extend);
    } else {
        caret.moveTo(first_.start);
        caret.moveTo(std::max(first_.end, last.end), TextCaret::Selection::extend);
    }
}

TextRange TextMouse::unitAt(const platform::LinedText& text, Unit unit, std::size_t offset) {
    if (unit == Unit::word) return wordAt(text, offset);
    if (unit == Unit::character) return {offset, offset};
    const auto line = text.line(text.lineAt(offset));
    return {line.start, line.next};
}

}  // namespace marquell::window
