// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/FieldAccessible.h"

#include <QLineEdit>
#include <QPointer>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "toolkit/bricks/BrickType.h"
#include "toolkit/bricks/IntegerTextField.h"
#include "toolkit/bricks/ListBrick.h"

namespace marquell::toolkit {

bool isFieldOfBrick(const QLineEdit& field) {
    return dynamic_cast<const BrickType*>(&field) != nullptr ||
           dynamic_cast<const ListBrick*>(field.parent()) != nullptr;
}

FieldAccessible::FieldAccessible(QLineEdit& field)
    : QAccessibleWidget(&field, QAccessible::EditableText), field_(field) {}

QString FieldAccessible::text(QAccessible::Text part) const {
    if (part == QAccessible::Value) return text(0, characterCount());
    QString own = QAccessibleWidget::text(part);
    if (!own.isEmpty()) return own;
    QString placeholder = field_.placeholderText();
    if (part == QAccessible::Description && text(QAccessible::Name) != placeholder) {
        return placeholder;
    }
    if (part != QAccessible::Name) return {};
    auto* const box = dynamic_cast<ListBrick*>(field_.parent());
    return box == nullptr ? placeholder : QAccessible::queryAccessibleInterface(box)->text(part);
}

void FieldAccessible::setText(QAccessible::Text part, const QString& text) {
    if (part == QAccessible::Value) {
        replaceText(0, characterCount(), text);
    } else {
        QAccessibleWidget::setText(part, text);
    }
}

QAccessible::State FieldAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = field_.isReadOnly();
    state.editable = !field_.isReadOnly();
    state.passwordEdit = isSecret();
    state.selectableText = true;
    state.selected = field_.hasSelectedText();
    const Qt::ContextMenuPolicy menu = field_.contextMenuPolicy();
    state.hasPopup = menu != Qt::NoContextMenu && menu != Qt::PreventContextMenu;
    return state;
}

void* FieldAccessible::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface*>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface*>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
    }
}

bool FieldAccessible::isSecret() const { return field_.echoMode() != QLineEdit::Normal; }

int FieldAccessible::within(int offset) const { return std::clamp(offset, 0, characterCount()); }

void FieldAccessible::addSelection(int startOffset, int endOffset) {
    setSelection(0, startOffset, endOffset);
}

void FieldAccessible::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) field_.deselect();
}

void FieldAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    *startOffset = *endOffset = 0;
    if (selectionIndex != 0 || !field_.hasSelectedText()) return;
    *startOffset = field_.selectionStart();
    *endOffset = field_.selectionEnd();
}

int FieldAccessible::selectionCount() const { return field_.hasSelectedText() ? 1 : 0; }

void FieldAccessible::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex != 0) return;
    const int start = within(startOffset);
    field_.setSelection(start, within(endOffset) - start);
}

int FieldAccessible::cursorPosition() const { return field_.cursorPosition(); }

void FieldAccessible::setCursorPosition(int position) { field_.setCursorPosition(position); }

QString FieldAccessible::text(int startOffset, int endOffset) const {
    if (isSecret() || startOffset > endOffset) return {};
    return field_.text().mid(startOffset, endOffset - startOffset);
}

QString FieldAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                          int* startOffset, int* endOffset) const {
    if (offset == -2) offset = cursorPosition();
    return QAccessibleTextInterface::textBeforeOffset(offset, boundaryType, startOffset, endOffset);
}

QString FieldAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                         int* startOffset, int* endOffset) const {
    if (offset == -2) offset = cursorPosition();
    return QAccessibleTextInterface::textAfterOffset(offset, boundaryType, startOffset, endOffset);
}

QString FieldAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                      int* startOffset, int* endOffset) const {
    if (offset == -2) offset = cursorPosition();
    return QAccessibleTextInterface::textAtOffset(offset, boundaryType, startOffset, endOffset);
}

int FieldAccessible::characterCount() const { return static_cast<int>(field_.text().size()); }

QRect FieldAccessible::characterRect(int offset) const {
    if (offset < 0 || offset >= characterCount()) return {};
    QTextLayout layout(field_.displayText(), field_.font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    // Seen from the cursor, which knows how far the text is scrolled.
    const QRect cursor = field_.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const double origin = cursor.center().x() - line.cursorToX(field_.cursorPosition());
    const double from = origin + line.cursorToX(offset);
    const double to = origin + line.cursorToX(offset + 1);
    const QRectF character(std::min(from, to), cursor.y(), std::abs(to - from), cursor.height());
    const QRect own = character.toAlignedRect();
    return {field_.mapToGlobal(own.topLeft()), own.size()};
}

int FieldAccessible::offsetAtPoint(const QPoint& point) const {
    return field_.cursorPositionAt(field_.mapFromGlobal(point));
}

void FieldAccessible::scrollToSubstring(int startIndex, int endIndex) {
    field_.setCursorPosition(endIndex);
    field_.setCursorPosition(startIndex);
}

QString FieldAccessible::attributes(int offset, int* startOffset, int* endOffset) const {
    *startOffset = *endOffset = offset;
    return {};
}

void FieldAccessible::deleteText(int startOffset, int endOffset) {
    replaceText(startOffset, endOffset, {});
}

void FieldAccessible::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void FieldAccessible::replaceText(int startOffset, int endOffset, const QString& text) {
    if (field_.isReadOnly() || !field_.isEnabled()) return;
    const QPointer<QLineEdit> field(&field_);  // which those who are told may end, and this with it
    setSelection(0, startOffset, endOffset);
    field->insert(text);  // reports as edited, unlike setText()
    auto* const number = dynamic_cast<IntegerTextField*>(field.data());
    if (number != nullptr && !number->hasFocus()) number->finishEditing();
}

}  // namespace marquell::toolkit
