// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessibleWidget>
#include <optional>

#include "window/preview/CharacterOffsets.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

class TextOutputView;

/// What assistive programs are told of a TextOutputView: a text that can only be read. Any part of
/// it is answered for without converting the rest.
class TextOutputAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit TextOutputAccessible(TextOutputView& view);

    QString text(QAccessible::Text part) const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;

    int cursorPosition() const override;
    void setCursorPosition(int position) override;

    QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                             int* startOffset, int* endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                            int* startOffset, int* endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType, int* startOffset,
                         int* endOffset) const override;
    int characterCount() const override;

    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

private:
    CharacterOffsets* offsets() const;
    std::size_t byteOf(int character) const;
    int characterOf(std::size_t offset) const;
    QString told(std::optional<TextRange> range, int* startOffset, int* endOffset) const;
    std::optional<TextRange> unitAt(std::size_t offset, QAccessible::TextBoundaryType kind) const;
    std::size_t place(int offset) const;

    TextOutputView& view_;
    mutable std::optional<CharacterOffsets> offsets_;  // of the text that was last asked about
};

/// Makes the above known to Qt; does nothing when called again.
void provideTextOutputAccessibility();

/// To be called after the changes, for those who listen.
void tellTextChanged(TextOutputView& view);
void tellCaretMoved(TextOutputView& view);

}  // namespace marquell::window
