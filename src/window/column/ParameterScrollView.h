// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace marquell::window {

/// Scrolls a column of fixed width that is as high as its content asks for. Its bar lies over the
/// free right edge of the column and takes no room; it shows whenever not all of the column does.
class ParameterScrollView : public QScrollArea {
public:
    explicit ParameterScrollView(QWidget* parent = nullptr);

    /// The view has to lay out itself, and becomes the scroll view's own.
    void setDocumentView(QWidget* view);

    bool isScrolled() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent*) override {}  // what is behind shows through

private:
    void fitDocument();
    void placeBar();

    QScrollBar* const bar_;
};

}  // namespace marquell::window
