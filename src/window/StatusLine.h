// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

namespace marquell::window {

/// One line of text in secondary colour that may change many times a second: that repaints it and
/// nothing else, and its digits stay in their places. Where it is too long it is cut at its end,
/// and the whole of it is its tool tip. It takes the room that others leave it. Assistive programs
/// find it as a status bar named by its text, and are told of a change once that has stood a
/// second.
class StatusLine : public QWidget {
public:
    explicit StatusLine(QWidget* parent = nullptr);

    void setText(const QString& text);
    const QString& text() const { return text_; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    QTimer settled_;
};

}  // namespace marquell::window
