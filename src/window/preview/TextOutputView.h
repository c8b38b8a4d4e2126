// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/LinedText.h"
#include "window/preview/TextCaret.h"
#include "window/preview/TextGeometry.h"
#include "window/preview/TextMouse.h"
#include "window/preview/TextPainting.h"

namespace marquell::window {

/// Shows a text of any size, to be read, selected and copied. Lines are not wrapped; those in view
/// are laid out, and of long ones only what is in view. Invisible characters show as marks. What is
/// copied are the bytes of the text.
class TextOutputView : public QAbstractScrollArea {
public:
    explicit TextOutputView(QWidget* parent = nullptr);
    ~TextOutputView() override;

    /// Shows a text in place of what was shown, from the place on that was seen of the last one.
    void setText(std::shared_ptr<const platform::LinedText> text);
    void setMessage(const QString& message);
    /// Empty while a text is shown.
    const QString& message() const { return message_; }
    /// Null while a message is shown.
    const std::shared_ptr<const platform::LinedText>& text() const { return text_; }

    TextRange selection() const { return caret_.selection(); }
    std::size_t caretPosition() const { return caret_.position(); }
    /// The caret is behind it from then on, and both are in view.
    void select(const TextRange& range);
    void selectAll();
    void copy() const;

    /// Where a character shows, in the viewport's coordinates, and which one shows at a point.
    QRect characterRect(std::size_t offset);
    std::size_t offsetAt(const QPoint& point);
    void showPlace(std::size_t offset);

    /// Called after another text or a message has come.
    std::function<void()> textChanged;
    /// Called after the caret or the selection has moved.
    std::function<void()> selectionChanged;
    /// Called when the user asks for it here.
    std::function<void()> find;
    std::function<void()> findNext;
    std::function<void()> findPrevious;
    /// The places that touch a range and are to be marked.
    std::function<std::vector<TextRange>(const TextRange& range)> hitsIn;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void timerEvent(QTimerEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Scrolled {
        int line = 0;
        int x = 0;
    };

    void show(std::shared_ptr<const platform::LinedText> text, const Scrolled& scrolled);
    TextPage page();
    std::size_t pageRows() const;
    void updateBars();
    void scrollTo(std::size_t offset, bool intoTheMidst);
    void scrollAcrossTo(std::size_t offset, bool intoTheMidst);
    bool isOwnKey(const QKeyEvent& key) const;
    void moveCaret(const std::function<void()>& move);
    void caretMoved();
    void restartBlinking();
    void drag();
    void offerSelection() const;

    std::shared_ptr<const platform::LinedText> text_;
    QString message_;
    std::unique_ptr<TextGeometry> geometry_;  // of an empty text while a message is shown
    Scrolled scrolledBefore_;                 // of the text before the message
    TextCaret caret_;
    TextMouse mouse_;
    QBasicTimer blinking_;
    QBasicTimer dragging_;
    QPoint draggedTo_;
    bool caretShows_ = false;
    double wheeled_ = 0;  // rows, of which only whole ones were scrolled
};

}  // namespace marquell::window
