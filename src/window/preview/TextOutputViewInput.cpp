// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "toolkit/bricks/CallIfSet.h"
#include "window/Text.h"
#include "window/preview/TextKeys.h"
#include "window/preview/TextOutputView.h"

namespace marquell::window {
namespace {

using toolkit::callIfSet;

constexpr int dragInterval = 40;  // ms between two steps of scrolling

/// How far a point lies outside of a range: negative before it, positive behind it.
int distanceFrom(int point, int length) {
    if (point < 0) return point;
    return std::max(point - length + 1, 0);
}

}  // namespace

bool TextOutputView::isOwnKey(const QKeyEvent& key) const {
    if (isCaretKey(key)) return true;
    const QKeySequence::StandardKey others[] = {QKeySequence::Copy, QKeySequence::SelectAll,
                                                QKeySequence::Find, QKeySequence::FindNext,
                                                QKeySequence::FindPrevious};
    return std::ranges::any_of(others, [&key](auto each) { return key.matches(each); });
}

bool TextOutputView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto& key = *static_cast<QKeyEvent*>(event);
        if (isOwnKey(key)) {
            key.accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void TextOutputView::keyPressEvent(QKeyEvent* event) {
    const auto is = [event](QKeySequence::StandardKey key) { return event->matches(key); };
    if (is(QKeySequence::Find)) return callIfSet(find);
    if (is(QKeySequence::FindNext)) return callIfSet(findNext);
    if (is(QKeySequence::FindPrevious)) return callIfSet(findPrevious);
    if (is(QKeySequence::Copy)) return copy();
    if (is(QKeySequence::SelectAll)) return selectAll();
    if (!isCaretKey(*event)) return event->ignore();
    const platform::LinedText& shown = geometry_->text();
    moveCaret([&] {
        const std::size_t line = shown.lineAt(caret_.position());
        moveCaretByKey(*event, *geometry_, pageRows(), caret_);
        if (!isPageKey(*event)) return;
        const auto rows = static_cast<std::ptrdiff_t>(shown.lineAt(caret_.position()) - line);
        verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(rows));
    });
}

void TextOutputView::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](std::string_view title, bool isEnabled, const auto& action) {
        QAction* const item = menu->addAction(localizedText(title, "menu item"));
        item->setEnabled(isEnabled);
        connect(item, &QAction::triggered, this, action);
    };
    const bool hasText = text_ != nullptr && !text_->text().empty();
    add("Copy", !selection().isEmpty(), [this] { copy(); });
    add("Select All", hasText, [this] { selectAll(); });
    menu->addSeparator();
    add("Find…", hasText, [this] { callIfSet(find); });
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint caret = viewport()->mapToGlobal(page().caretRect(caret_.position()).bottomLeft());
    menu->popup(byKey ? caret : event->globalPos());
}

void TextOutputView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    draggedTo_ = event->position().toPoint();
    mouse_.press(geometry_->text(), caret_, offsetAt(draggedTo_), *event);
    caretMoved();
}

void TextOutputView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    draggedTo_ = event->position().toPoint();
    mouse_.doubleClick(geometry_->text(), caret_, offsetAt(draggedTo_), *event);
    caretMoved();
}

void TextOutputView::mouseMoveEvent(QMouseEvent* event) {
    if (!mouse_.isDown()) return event->ignore();
    draggedTo_ = event->position().toPoint();
    const bool isInside = viewport()->rect().contains(draggedTo_);
    if (isInside) dragging_.stop();
    if (!isInside && !dragging_.isActive()) dragging_.start(dragInterval, this);
    drag();
}

void TextOutputView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !mouse_.isDown()) return event->ignore();
    mouse_.release();
    dragging_.stop();
    offerSelection();
}

/// Selects up to where the mouse is, or to the edge of the view that is nearest.
void TextOutputView::drag() {
    const QRect view = viewport()->rect();
    const QPoint nearest(std::clamp(draggedTo_.x(), view.left(), view.right()),
                         std::clamp(draggedTo_.y(), view.top(), view.bottom()));
    mouse_.dragTo(geometry_->text(), caret_, offsetAt(nearest));
    caretMoved();
}

void TextOutputView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == blinking_.timerId()) {
        caretShows_ = !caretShows_;
        viewport()->update(page().caretRect(caret_.position()));
    } else if (event->timerId() == dragging_.timerId()) {
        // The farther away, the faster.
        const int rows = distanceFrom(draggedTo_.y(), viewport()->height());
        const int columns = distanceFrom(draggedTo_.x(), viewport()->width());
        const int sign = rows < 0 ? -1 : rows > 0 ? 1 : 0;
        verticalScrollBar()->setValue(verticalScrollBar()->value() + sign +
                                      rows / geometry_->measure().rowHeight);
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + columns);
        drag();
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void TextOutputView::wheelEvent(QWheelEvent* event) {
    // Fingers on a pad tell px; a wheel tells notches, which the bars know to take.
    const bool isPad = event->phase() != Qt::NoScrollPhase && !event->pixelDelta().isNull();
    if (!isPad) return QAbstractScrollArea::wheelEvent(event);
    wheeled_ -= static_cast<double>(event->pixelDelta().y()) / geometry_->measure().rowHeight;
    const double rows = std::trunc(wheeled_);
    wheeled_ -= rows;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + static_cast<int>(rows));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - event->pixelDelta().x());
}

void TextOutputView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    restartBlinking();
}

void TextOutputView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    restartBlinking();
}

void TextOutputView::restartBlinking() {
    caretShows_ = hasFocus();
    const int period = QApplication::cursorFlashTime();
    if (caretShows_ && period >= 2) {
        blinking_.start(period / 2, this);
    } else {
        blinking_.stop();
    }
    viewport()->update();
}

void TextOutputView::resizeEvent(QResizeEvent* /*event*/) { updateBars(); }

void TextOutputView::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

void TextOutputView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange) {
        if (geometry_ == nullptr) return;  // not even made yet
        geometry_->measureAnew();
        updateBars();
    }
    viewport()->update();
}

}  // namespace marquell::window
