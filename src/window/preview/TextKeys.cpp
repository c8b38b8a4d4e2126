// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextKeys.h"

#include <QKeySequence>

#include "window/preview/TextSteps.h"

namespace marquell::window {
namespace {

using platform::LinedText;

/// A key that moves the caret to a place that follows from where it is.
struct Step {
    QKeySequence::StandardKey move;
    QKeySequence::StandardKey select;
    std::size_t (*target)(const LinedText& text, std::size_t offset);
};

/// A key that moves it by rows.
struct RowStep {
    QKeySequence::StandardKey move;
    QKeySequence::StandardKey select;
    std::ptrdiff_t rows;
    std::ptrdiff_t pages;
};

std::size_t lineStart(const LinedText& text, std::size_t offset) {
    return text.line(text.lineAt(offset)).start;
}

std::size_t lineEnd(const LinedText& text, std::size_t offset) {
    return text.line(text.lineAt(offset)).end;
}

std::size_t textStart(const LinedText& /*text*/, std::size_t /*offset*/) { return 0; }

std::size_t textEnd(const LinedText& text, std::size_t /*offset*/) { return text.text().size(); }

using Key = QKeySequence;

constexpr Step steps[] = {
    {Key::MoveToNextChar, Key::SelectNextChar, nextCharacter},
    {Key::MoveToPreviousChar, Key::SelectPreviousChar, previousCharacter},
    {Key::MoveToNextWord, Key::SelectNextWord, nextWord},
    {Key::MoveToPreviousWord, Key::SelectPreviousWord, previousWord},
    {Key::MoveToStartOfLine, Key::SelectStartOfLine, lineStart},
    {Key::MoveToEndOfLine, Key::SelectEndOfLine, lineEnd},
    {Key::MoveToStartOfDocument, Key::SelectStartOfDocument, textStart},
    {Key::MoveToEndOfDocument, Key::SelectEndOfDocument, textEnd},
};

constexpr RowStep rowSteps[] = {
    {Key::MoveToNextLine, Key::SelectNextLine, 1, 0},
    {Key::MoveToPreviousLine, Key::SelectPreviousLine, -1, 0},
    {Key::MoveToNextPage, Key::SelectNextPage, 0, 1},
    {Key::MoveToPreviousPage, Key::SelectPreviousPage, 0, -1},
};

template <typename Table>
auto* entryFor(const QKeyEvent& key, const Table& table) {
    for (const auto& entry : table) {
        if (key.matches(entry.move) || key.matches(entry.select)) return &entry;
    }
    return static_cast<decltype(&table[0])>(nullptr);
}

template <typename Entry>
TextCaret::Selection selectionFor(const QKeyEvent& key, const Entry& entry) {
    return key.matches(entry.select) ? TextCaret::Selection::extend : TextCaret::Selection::drop;
}

}  // namespace

bool isCaretKey(const QKeyEvent& key) {
    return entryFor(key, steps) != nullptr || entryFor(key, rowSteps) != nullptr;
}

bool isPageKey(const QKeyEvent& key) {
    const auto* step = entryFor(key, rowSteps);
    return step != nullptr && step->pages != 0;
}

void moveCaretByKey(const QKeyEvent& key, TextGeometry& geometry, std::size_t pageRows,
                    TextCaret& caret) {
    if (const auto* step = entryFor(key, steps)) {
        const TextCaret::Selection selection = selectionFor(key, *step);
        const TextRange selected = caret.selection();
        // A step from a selection goes to that end of it.
        if (selection == TextCaret::Selection::drop && !selected.isEmpty()) {
            if (step->target == nextCharacter) return caret.moveTo(selected.end);
            if (step->target == previousCharacter) return caret.moveTo(selected.start);
        }
        caret.moveTo(step->target(geometry.text(), caret.position()), selection);
    } else if (const auto* rowStep = entryFor(key, rowSteps)) {
        const auto rows = rowStep->rows + rowStep->pages * static_cast<std::ptrdiff_t>(pageRows);
        caret.moveByRows(geometry, rows, selectionFor(key, *rowStep));
    }
}

}  // namespace marquell::window
