// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextOutputView.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "shell/Utf8MimeData.h"
#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"
#include "window/Text.h"
#include "window/preview/TextOutputAccessible.h"
#include "window/preview/TextSteps.h"

namespace marquell::window {
namespace {

using platform::LinedText;

constexpr double widestBar = 2e9;  // px; as far as bars can count

const std::shared_ptr<const LinedText>& emptyText() {
    static const auto empty =
        std::make_shared<const LinedText>(std::make_shared<platform::TextBuffer>());
    return empty;
}

/// Text and bytes stay where they are until a reader asks for them.
void offer(const std::shared_ptr<const LinedText>& text, const TextRange& range,
           QClipboard::Mode mode) {
    auto data = std::make_unique<shell::Utf8MimeData>();
    data->offer(platform::PasteboardType::string, text,
                text->text().substr(range.start, range.length()));
    QGuiApplication::clipboard()->setMimeData(data.release(), mode);
}

}  // namespace

TextOutputView::TextOutputView(QWidget* parent) : QAbstractScrollArea(parent) {
    provideTextOutputAccessibility();
    setAccessibleName(localizedText("Text Output", "accessible name"));
    setLayoutDirection(Qt::LeftToRight);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    toolkit::setFontRole(this, toolkit::FontRole::monospaced);
    setBackgroundRole(QPalette::Base);  // under the bars
    setAutoFillBackground(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setCursor(Qt::IBeamCursor);
    show(emptyText(), {});
}

TextOutputView::~TextOutputView() = default;

void TextOutputView::setText(std::shared_ptr<const LinedText> text) {
    const bool hadText = text_ != nullptr;
    const Scrolled now = {verticalScrollBar()->value(), horizontalScrollBar()->value()};
    text_ = text;
    message_.clear();
    show(std::move(text), hadText ? now : scrolledBefore_);
}

void TextOutputView::setMessage(const QString& message) {
    if (text_ != nullptr) {
        scrolledBefore_ = {verticalScrollBar()->value(), horizontalScrollBar()->value()};
    }
    text_.reset();
    message_ = message;
    show(emptyText(), {});
}

void TextOutputView::show(std::shared_ptr<const LinedText> text, const Scrolled& scrolled) {
    mouse_.release();
    dragging_.stop();
    geometry_ = std::make_unique<TextGeometry>(std::move(text));
    updateBars();
    verticalScrollBar()->setValue(scrolled.line);
    horizontalScrollBar()->setValue(scrolled.x);
    const auto first = static_cast<std::size_t>(verticalScrollBar()->value());
    caret_ = {};
    caret_.moveTo(geometry_->text().line(first).start);
    viewport()->update();
    toolkit::callIfSet(textChanged);
    tellTextChanged(*this);
}

TextPage TextOutputView::page() {
    return {*geometry_,
            static_cast<std::size_t>(verticalScrollBar()->value()),
            static_cast<double>(horizontalScrollBar()->value()),
            caret_.selection(),
            caretShows_ && text_ != nullptr ? std::optional(caret_.position()) : std::nullopt,
            hitsIn};
}

std::size_t TextOutputView::pageRows() const {
    const PageMeasure& measure = geometry_->measure();
    const int rows = (viewport()->height() - 2 * measure.margin) / measure.rowHeight;
    return static_cast<std::size_t>(std::max(rows, 1));
}

void TextOutputView::updateBars() {
    const auto rows = static_cast<int>(pageRows());
    const auto lines = static_cast<int>(
        std::min<std::size_t>(geometry_->text().lineCount(), std::numeric_limits<int>::max()));
    verticalScrollBar()->setPageStep(rows);
    verticalScrollBar()->setRange(0, std::max(lines - rows, 0));
    const double width = std::ceil(geometry_->width()) + 2 * geometry_->measure().margin;
    const int room = viewport()->width();
    horizontalScrollBar()->setPageStep(room);
    horizontalScrollBar()->setSingleStep(static_cast<int>(geometry_->measure().tabDistance));
    horizontalScrollBar()->setRange(
        0, std::max(static_cast<int>(std::min(width, widestBar)) - room, 0));
}

void TextOutputView::select(const TextRange& range) {
    moveCaret([&] { caret_.select(range); });
    scrollTo(range.end, true);
    scrollTo(range.start, true);
}

void TextOutputView::selectAll() {
    // The place in view stays.
    caret_.select({0, geometry_->text().text().size()});
    caretMoved();
}

void TextOutputView::copy() const {
    if (text_ == nullptr || selection().isEmpty()) return;
    offer(text_, selection(), QClipboard::Clipboard);
}

/// What the mouse selects can be pasted at once with its middle button, where that is customary.
void TextOutputView::offerSelection() const {
    if (text_ == nullptr || selection().isEmpty()) return;
    if (QGuiApplication::clipboard()->supportsSelection()) {
        offer(text_, selection(), QClipboard::Selection);
    }
}

void TextOutputView::moveCaret(const std::function<void()>& move) {
    move();
    scrollTo(caret_.position(), false);
    caretMoved();
}

void TextOutputView::caretMoved() {
    restartBlinking();
    tellCaretMoved(*this);
    toolkit::callIfSet(selectionChanged);
}

/// Has a place in view: as near as it is, or with some text about it.
void TextOutputView::scrollTo(std::size_t offset, bool intoTheMidst) {
    const TextGeometry::Place place = geometry_->placeOf(offset);
    const auto line = static_cast<int>(place.line);
    const auto rows = static_cast<int>(pageRows());
    const int before = intoTheMidst ? rows / 3 : 0;
    QScrollBar* const down = verticalScrollBar();
    if (line < down->value()) {
        down->setValue(line - before);
    } else if (line >= down->value() + rows) {
        down->setValue(intoTheMidst ? line - before : line - rows + 1);
    }
    scrollAcrossTo(offset, intoTheMidst);
    // Of a long line, what has now come into view may not be quite as wide as it was taken to be.
    const double left = horizontalScrollBar()->value();
    geometry_->layOut(place.line, left, left + viewport()->width());
    scrollAcrossTo(offset, intoTheMidst);
}

void TextOutputView::scrollAcrossTo(std::size_t offset, bool intoTheMidst) {
    const auto x = static_cast<int>(std::min(geometry_->placeOf(offset).x, widestBar));
    updateBars();
    const int room = std::max(viewport()->width() - 2 * geometry_->measure().margin, 1);
    const int about = intoTheMidst ? room / 4 : 0;
    QScrollBar* const across = horizontalScrollBar();
    if (x < across->value()) {
        across->setValue(x - about);
    } else if (x > across->value() + room) {
        across->setValue(x - room + about);
    }
}

void TextOutputView::showPlace(std::size_t offset) { scrollTo(offset, false); }

QRect TextOutputView::characterRect(std::size_t offset) {
    const QRect left = page().caretRect(offset);
    const QRect right = page().caretRect(nextCharacter(geometry_->text(), offset));
    const bool isInLine = right.top() == left.top();
    const int width = isInLine ? std::abs(right.left() - left.left()) : 0;
    return {std::min(left.left(), isInLine ? right.left() : left.left()), left.top(), width,
            left.height()};
}

std::size_t TextOutputView::offsetAt(const QPoint& point) {
    const PageMeasure& measure = geometry_->measure();
    const double row =
        std::floor(static_cast<double>(point.y() - measure.margin) / measure.rowHeight);
    const double last = static_cast<double>(geometry_->text().lineCount() - 1);
    const double line = std::clamp(verticalScrollBar()->value() + row, 0.0, last);
    const double x = point.x() - measure.margin + horizontalScrollBar()->value();
    return characterStart(geometry_->text(),
                          geometry_->offsetAt(static_cast<std::size_t>(line), x));
}

void TextOutputView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const double widthBefore = geometry_->width();
    paintTextPage(painter, page(), event->rect(), this);
    if (!message_.isEmpty()) {
        const PageMeasure& measure = geometry_->measure();
        painter.setFont(measure.font);
        painter.setPen(toolkit::color(toolkit::ColorRole::secondaryText, this));
        toolkit::drawTextLine(painter,
                              QRectF(measure.margin, measure.margin,
                                     viewport()->width() - 2 * measure.margin, measure.rowHeight),
                              message_);
    }
    if (geometry_->width() > widthBefore) {
        QMetaObject::invokeMethod(
            this, [this] { updateBars(); }, Qt::QueuedConnection);
    }
}

}  // namespace marquell::window
