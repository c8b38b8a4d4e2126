// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/ComboBoxBrick.h"

#include <QLineEdit>
#include <QStyleOptionComboBox>

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

void ComboBoxBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
}

}  // namespace marquell::toolkit
