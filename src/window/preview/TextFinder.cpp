// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextFinder.h"

#include <QLocale>

#include "window/Text.h"
#include "window/preview/DecodedText.h"

namespace marquell::window {
namespace {

constexpr std::size_t longestWords = 256;  // bytes that are taken over from a selection

QString numberText(std::size_t number) {
    return QLocale().toString(static_cast<qulonglong>(number));
}

/// The selected words, if they can be looked for; else empty.
QString selectedWords(const TextOutputView& view) {
    const TextRange selection = view.selection();
    if (view.text() == nullptr || selection.length() > longestWords) return {};
    const platform::LinedText& text = *view.text();
    if (selection.end > text.line(text.lineAt(selection.start)).end) return {};
    return DecodedText(text.text().substr(selection.start, selection.length())).text();
}

}  // namespace

TextFinder::TextFinder(TextOutputView& view, FindBar& bar) : view_(view), bar_(bar) {
    search_.progressed = [this] {
        grant();
        showStatus();
        view_.viewport()->update();
    };
    bar_.wordsChanged = [this] { search(Wish{Direction::forward, view_.selection().start}); };
    bar_.next = [this] { next(); };
    bar_.previous = [this] { previous(); };
    bar_.closed = [this] { close(); };
    view_.find = [this] { open(); };
    view_.findNext = [this] { next(); };
    view_.findPrevious = [this] { previous(); };
    view_.textChanged = [this] { search(std::nullopt); };
    view_.selectionChanged = [this] { showStatus(); };
    view_.hitsIn = [this](const TextRange& range) {
        return search_.isActive() ? search_.hitsIn(range) : std::vector<TextRange>();
    };
}

TextFinder::~TextFinder() {
    view_.textChanged = nullptr;
    view_.selectionChanged = nullptr;
    view_.hitsIn = nullptr;
}

void TextFinder::open() {
    const QString words = selectedWords(view_);
    if (!words.isEmpty()) bar_.setWords(words);
    bar_.show();
    bar_.focusField();
    search(std::nullopt);
}

void TextFinder::close() {
    bar_.hide();
    search(std::nullopt);
    view_.setFocus(Qt::OtherFocusReason);
}

void TextFinder::next() { go(Direction::forward); }

void TextFinder::previous() { go(Direction::backward); }

void TextFinder::go(Direction direction) {
    if (bar_.words().isEmpty()) return open();
    const TextRange selection = view_.selection();
    const Wish wish = {direction,
                       direction == Direction::forward ? selection.end : selection.start};
    if (bar_.isHidden() || !search_.isActive()) {
        bar_.show();
        return search(wish);
    }
    wish_ = wish;
    grant();
}

/// Looks for the words of the bar, if it is open, and selects what is wished for.
void TextFinder::search(std::optional<Wish> wish) {
    wish_ = wish;
    const TextPattern pattern(bar_.words().toStdString(), bar_.matchCase());
    if (bar_.isHidden() || pattern.isEmpty() || view_.text() == nullptr) {
        search_.stop();
    } else {
        search_.start(view_.text(), pattern, wish ? wish->from : view_.selection().start);
    }
    showStatus();
    view_.viewport()->update();
}

void TextFinder::grant() {
    if (!wish_) return;
    const bool isForward = wish_->direction == Direction::forward;
    const TextSearch::Answer answer =
        isForward ? search_.hitFrom(wish_->from) : search_.hitBefore(wish_->from);
    if (!answer.isKnown) return;
    wish_.reset();
    if (answer.hit) view_.select(*answer.hit);
}

void TextFinder::showStatus() { bar_.setStatus(search_.isActive() ? status() : QString()); }

QString TextFinder::status() const {
    if (!search_.isFinished()) {
        return search_.hitCount() == 0 ? QString() : localizedText("Searching…", "label");
    }
    const std::size_t count = search_.hitCount();
    if (count == 0) return localizedText("Not found", "label");
    const TextRange selection = view_.selection();
    if (selection.isEmpty() || search_.hitFrom(selection.start).hit != selection) {
        return localizedText("%1 found", "label").arg(numberText(count));
    }
    const std::size_t number = search_.numberBefore(selection.start) + 1;
    return localizedText("%1 of %2", "label").arg(numberText(number), numberText(count));
}

}  // namespace marquell::window
