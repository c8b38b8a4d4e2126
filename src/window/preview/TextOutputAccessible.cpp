// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextOutputAccessible.h"

#include <algorithm>
#include <limits>

#include "window/preview/DecodedText.h"
#include "window/preview/TextOutputView.h"
#include "window/preview/TextSteps.h"

namespace marquell::window {
namespace {

constexpr int atCaret = -2;  // what programs ask for in place of an offset
constexpr int atEnd = -1;

/// In bytes, of one answer: more would not pass to the program that asks.
constexpr std::size_t mostTold = 1 << 20;

/// Where what is told of a range ends, never within a character.
std::size_t endOfTold(std::string_view text, const TextRange& range) {
    if (range.length() <= mostTold) return range.end;
    std::size_t end = range.start + mostTold;
    while (!beginsCodePoint(text, end)) --end;
    return end;
}

}  // namespace

TextOutputAccessible::TextOutputAccessible(TextOutputView& view)
    : QAccessibleWidget(&view, QAccessible::EditableText), view_(view) {}

QString TextOutputAccessible::text(QAccessible::Text part) const {
    if (part == QAccessible::Description && view_.text() == nullptr) return view_.message();
    return QAccessibleWidget::text(part);
}

QAccessible::State TextOutputAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    state.hasPopup = true;
    return state;
}

void* TextOutputAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

/// Null while there is no text.
CharacterOffsets* TextOutputAccessible::offsets() const {
    if (view_.text() == nullptr) {
        offsets_.reset();
        return nullptr;
    }
    if (!offsets_ || offsets_->text() != view_.text().get()) offsets_.emplace(view_.text());
    return &*offsets_;
}

/// The byte at which a character begins, or the end.
std::size_t TextOutputAccessible::byteOf(int character) const {
    CharacterOffsets* const known = offsets();
    if (known == nullptr) return 0;
    if (character == atEnd) return view_.text()->text().size();
    return known->offsetOf(static_cast<std::size_t>(std::max(character, 0)));
}

int TextOutputAccessible::characterOf(std::size_t offset) const {
    CharacterOffsets* const known = offsets();
    if (known == nullptr) return 0;
    return static_cast<int>(
        std::min<std::size_t>(known->charactersBefore(offset), std::numeric_limits<int>::max()));
}

int TextOutputAccessible::characterCount() const {
    return view_.text() == nullptr ? 0 : characterOf(view_.text()->text().size());
}

QString TextOutputAccessible::text(int startOffset, int endOffset) const {
    return told(TextRange{byteOf(startOffset), byteOf(endOffset)}, nullptr, nullptr);
}

QString TextOutputAccessible::told(std::optional<TextRange> range, int* startOffset,
                                   int* endOffset) const {
    const bool isText = range && view_.text() != nullptr && range->start <= range->end;
    if (isText) range->end = endOfTold(view_.text()->text(), *range);
    if (startOffset != nullptr) *startOffset = isText ? characterOf(range->start) : -1;
    if (endOffset != nullptr) *endOffset = isText ? characterOf(range->end) : -1;
    if (!isText) return {};
    return DecodedText(view_.text()->text().substr(range->start, range->length())).text();
}

/// The byte that a question is about.
std::size_t TextOutputAccessible::place(int offset) const {
    return offset == atCaret ? view_.caretPosition() : byteOf(offset);
}

std::optional<TextRange> TextOutputAccessible::unitAt(std::size_t offset,
                                                      QAccessible::TextBoundaryType kind) const {
    if (view_.text() == nullptr) return std::nullopt;
    const platform::LinedText& text = *view_.text();
    const auto line = text.line(text.lineAt(offset));
    switch (kind) {
        case QAccessible::CharBoundary: {
            const std::size_t start = characterStart(text, offset);
            return TextRange{start, nextCharacter(text, start)};
        }
        case QAccessible::WordBoundary:
            if (offset < line.end) return wordAt(text, offset);
            return TextRange{line.end, line.next};
        case QAccessible::SentenceBoundary:
        case QAccessible::LineBoundary:
        case QAccessible::ParagraphBoundary:
            return TextRange{line.start, line.next};
        case QAccessible::NoBoundary:
            break;
    }
    return TextRange{0, text.text().size()};
}

QString TextOutputAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                           int* startOffset, int* endOffset) const {
    return told(unitAt(place(offset), boundaryType), startOffset, endOffset);
}

QString TextOutputAccessible::textBeforeOffset(int offset,
                                               QAccessible::TextBoundaryType boundaryType,
                                               int* startOffset, int* endOffset) const {
    auto unit = unitAt(place(offset), boundaryType);
    if (unit) unit = unit->start == 0 ? std::nullopt : unitAt(unit->start - 1, boundaryType);
    return told(unit, startOffset, endOffset);
}

QString TextOutputAccessible::textAfterOffset(int offset,
                                              QAccessible::TextBoundaryType boundaryType,
                                              int* startOffset, int* endOffset) const {
    auto unit = unitAt(place(offset), boundaryType);
    const bool isLast = unit && unit->end == view_.text()->text().size();
    if (unit) unit = isLast ? std::nullopt : unitAt(unit->end, boundaryType);
    return told(unit, startOffset, endOffset);
}

int TextOutputAccessible::selectionCount() const { return view_.selection().isEmpty() ? 0 : 1; }

void TextOutputAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    *startOffset = *endOffset = 0;
    if (selectionIndex != 0 || view_.selection().isEmpty()) return;
    *startOffset = characterOf(view_.selection().start);
    *endOffset = characterOf(view_.selection().end);
}

void TextOutputAccessible::addSelection(int startOffset, int endOffset) {
    setSelection(0, startOffset, endOffset);
}

void TextOutputAccessible::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) view_.select({view_.caretPosition(), view_.caretPosition()});
}

void TextOutputAccessible::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex != 0 || view_.text() == nullptr) return;
    const std::size_t one = characterStart(*view_.text(), byteOf(startOffset));
    const std::size_t other = characterStart(*view_.text(), byteOf(endOffset));
    view_.select({std::min(one, other), std::max(one, other)});
}

int TextOutputAccessible::cursorPosition() const { return characterOf(view_.caretPosition()); }

void TextOutputAccessible::setCursorPosition(int position) { setSelection(0, position, position); }

QRect TextOutputAccessible::characterRect(int offset) const {
    const QRect own = view_.characterRect(place(offset));
    return {view_.viewport()->mapToGlobal(own.topLeft()), own.size()};
}

int TextOutputAccessible::offsetAtPoint(const QPoint& point) const {
    const QPoint own = view_.viewport()->mapFromGlobal(point);
    return view_.viewport()->rect().contains(own) ? characterOf(view_.offsetAt(own)) : -1;
}

void TextOutputAccessible::scrollToSubstring(int startIndex, int endIndex) {
    view_.showPlace(byteOf(endIndex));
    view_.showPlace(byteOf(startIndex));
}

QString TextOutputAccessible::attributes(int offset, int* startOffset, int* endOffset) const {
    // There are none, so any stretch will do.
    *startOffset = offset;
    *endOffset = offset + 1;
    return {};
}

namespace {

QAccessibleInterface* accessibleOf(const QString& /*className*/, QObject* object) {
    auto* const view = dynamic_cast<TextOutputView*>(object);
    return view == nullptr ? nullptr : new TextOutputAccessible(*view);
}

}  // namespace

void provideTextOutputAccessibility() {
    static const bool isProvided = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
    static_cast<void>(isProvided);
}

void tellTextChanged(TextOutputView& view) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(&view, QAccessible::VisibleDataChanged);
    QAccessible::updateAccessibility(&event);
}

void tellCaretMoved(TextOutputView& view) {
    if (!QAccessible::isActive()) return;
    auto* const told = QAccessible::queryAccessibleInterface(&view);
    if (told == nullptr || told->textInterface() == nullptr) return;
    const QAccessibleTextInterface& text = *told->textInterface();
    int start = 0;
    int end = 0;
    text.selection(0, &start, &end);
    QAccessibleTextSelectionEvent event(&view, start, end);
    event.setCursorPosition(text.cursorPosition());
    QAccessible::updateAccessibility(&event);
    QAccessibleTextCursorEvent moved(&view, text.cursorPosition());
    QAccessible::updateAccessibility(&moved);
}

}  // namespace marquell::window
