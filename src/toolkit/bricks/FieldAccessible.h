// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessibleWidget>

class QLineEdit;

namespace marquell::toolkit {

/// Whether the field is a brick or the inner field of one that reports its text.
bool isFieldOfBrick(const QLineEdit& field);

/// A field for one line of text. What assistive programs write counts as typed by the user: it
/// passes the validator and is reported, and ends as if the user had left if the field has no
/// focus.
class FieldAccessible : public QAccessibleWidget,
                        public QAccessibleTextInterface,
                        public QAccessibleEditableTextInterface {
public:
    explicit FieldAccessible(QLineEdit& field);

    QString text(QAccessible::Text part) const override;
    void setText(QAccessible::Text part, const QString& text) override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
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

    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int startOffset, int endOffset, const QString& text) override;

private:
    bool isSecret() const;
    int within(int offset) const;

    QLineEdit& field_;
};

}  // namespace marquell::toolkit
