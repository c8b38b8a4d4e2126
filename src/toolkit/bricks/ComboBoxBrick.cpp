// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ComboBoxBrick.h"

#include <QEvent>
#include <QLineEdit>
#include <QStyleOptionComboBox>

#include "toolkit/bricks/BrickAccessibility.h"
#include "toolkit/bricks/CallIfSet.h"

namespace marquell::toolkit {

ComboBoxBrick::ComboBoxBrick(QWidget* parent) : ListBrick(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);  // the text is the user's
    const auto tellText = [this] { callIfSet(textChangedAction, currentText()); };
    connect(lineEdit(), &QLineEdit::textEdited, this, tellText);
    connect(lineEdit(), &QLineEdit::returnPressed, this, tellText);
    connect(this, &QComboBox::activated, this, tellText);
}

bool ComboBoxBrick::event(QEvent* event) {
    // The field is what assistive programs meet first.
    if (event->type() == QEvent::Show) lineEdit()->setAccessibleName(accessibleNameOf(this));
    return ListBrick::event(event);
}

void ComboBoxBrick::delegateDrawingToSuper(QPainter& painter, const QRectF& frame) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
}

}  // namespace marquell::toolkit
