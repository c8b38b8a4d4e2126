// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <QString>
#include <functional>

#include "toolkit/walls/Wall.h"

namespace marquell::toolkit {
class CheckBoxBrick;
class Label;
class SmartTextField;
}  // namespace marquell::toolkit

namespace marquell::window {

/// Where the user says what to find. Return and F3 go on to the next place, with Shift to the one
/// before, and Escape closes the bar, wherever in it the keyboard is.
class FindBar : public toolkit::Wall {
public:
    explicit FindBar(QWidget* parent = nullptr);

    QString words() const;
    /// Does not count as a change by the user.
    void setWords(const QString& words);
    bool matchCase() const;

    /// What was found.
    void setStatus(const QString& status);

    /// Gives the keyboard to the field, with all of it selected.
    void focusField();

    std::function<void()> wordsChanged;  ///< or how they are compared, by the user
    std::function<void()> next;
    std::function<void()> previous;
    std::function<void()> closed;  ///< the user wants it to

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addField();
    void addButtons();
    void addStatus();

    toolkit::SmartTextField* field_ = nullptr;
    toolkit::CheckBoxBrick* matchCase_ = nullptr;
    toolkit::Label* status_ = nullptr;
};

}  // namespace marquell::window
