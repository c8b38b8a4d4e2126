// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/FindBar.h"

#include <QAbstractButton>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SmartTextField.h"
#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"
#include "window/Text.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double leastFieldWidth = 80;
constexpr double largestFieldWidth = 260;

bool isReturn(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool goesOn(const QKeyEvent& key) {
    return isReturn(key) || key.matches(QKeySequence::FindNext) ||
           key.matches(QKeySequence::FindPrevious);
}

bool closes(const QKeyEvent& key) { return key.key() == Qt::Key_Escape; }

}  // namespace

FindBar::FindBar(QWidget* parent) : Wall(parent) {
    backgroundDrawingFunc = [this](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, color(ColorRole::window, this));
        const QRectF line(frame.topLeft(), QSizeF(frame.width(), hairline(painter)));
        painter.fillRect(line, color(ColorRole::headerLine, this));
    };
    factory().brickSize = BrickSize::small;
    addField();
    addButtons();
    addStatus();
}

void FindBar::addField() {
    field_ = factory().textField({}, [](LayoutConstraintMaker& make) {
        make.minWidth(leastFieldWidth).maxWidth(largestFieldWidth);
        make.container().place(leading, leading).pin(centerY, centerY, 0);
    });
    field_->setPlaceholderText(localizedText("Find", "placeholder"));
    field_->setAccessibleName(localizedText("Find", "accessible name"));
    field_->setClearButtonEnabled(false);
    QObject::connect(field_, &QLineEdit::textEdited, this, [this] { callIfSet(wordsChanged); });
}

void FindBar::addButtons() {
    QWidget* before = field_;
    const auto behind = [&before](LayoutConstraintMaker& make) {
        make.andView(before).place(leading, trailing);
        make.container().pin(centerY, centerY, 0);
        before = make.subject;
    };
    factory().pushButton(
        localizedText("Previous", "button title"), [this] { callIfSet(previous); }, behind);
    factory().pushButton(
        localizedText("Next", "button title"), [this] { callIfSet(next); }, behind);
    matchCase_ = factory().smartCheckBoxButton(
        localizedText("Match case", "checkbox title"), [this](bool) { callIfSet(wordsChanged); },
        behind);
}

void FindBar::addStatus() {
    auto* const close = new PushButtonBrick;
    close->setGlyph(Glyph::cross, localizedText("Close", "button title"));
    close->buttonPressFunction = [this] { callIfSet(closed); };
    factory().internalAddBrick(close, [](LayoutConstraintMaker& make) {
        make.container().place(trailing, trailing).pin(centerY, centerY, 0);
    });
    status_ = factory().label({}, [this, close](LayoutConstraintMaker& make) {
        make.andView(matchCase_).place(leading, trailing);
        make.andView(close).place(trailing, leading);
        make.container().pin(centerY, centerY, 0);
    });
    status_->setColorRole(ColorRole::secondaryText);
    // It takes the room that the others leave, and gives way first.
    setContentHuggingPriority(status_, Qt::Horizontal, LayoutPriority::lowest);
    setContentCompressionResistancePriority(status_, Qt::Horizontal, LayoutPriority::lowest);
}

QString FindBar::words() const { return field_->text(); }

void FindBar::setWords(const QString& words) { field_->setText(words); }

bool FindBar::matchCase() const { return matchCase_->isChecked(); }

void FindBar::setStatus(const QString& status) {
    if (status_->text() != status) status_->setText(status);
}

void FindBar::focusField() {
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

bool FindBar::event(QEvent* event) {
    // The keys mean what they mean here, whatever else in the window they are a shortcut for.
    if (event->type() == QEvent::ShortcutOverride) {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (goesOn(key) || closes(key)) {
            key.accept();
            return true;
        }
    }
    return Wall::event(event);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (closes(*event)) return callIfSet(closed);
    if (!goesOn(*event)) return Wall::keyPressEvent(event);
    auto* const button = dynamic_cast<PushButtonBrick*>(focusWidget());
    if (isReturn(*event) && button != nullptr) return button->click();
    const bool isBack = event->modifiers().testFlag(Qt::ShiftModifier);
    callIfSet(isBack ? previous : next);
}

}  // namespace marquell::window
