// SPDX-License-Identifier: GPL-3.0-or-later
// What texts cost in the preview: to find the lines of a large one and a word in it, to hand it to
// a program that pastes, and to paint pages of all kinds. text.py compares and prints it.
//
//     marquell_text_bench FILE WORD
//
// Prints for each step: name, milliseconds, of them at work, and what was counted, with tabs
// between.
#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QPixmap>
#include <QScrollBar>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileDescriptor.h"
#include "platform/LinedText.h"
#include "shell/Utf8MimeData.h"
#include "toolkit/look/HouseStyle.h"
#include "window/preview/SearchRun.h"
#include "window/preview/TextOutputView.h"

namespace marquell::bench {
namespace {

using platform::LinedText;
using platform::TextBuffer;

double milliseconds(clockid_t clock) {
    timespec now{};
    ::clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Prints the time that passes and the time that the thread is at work in a step, which returns
/// what it has counted.
void measure(const char* name, const std::function<std::size_t()>& step) {
    const double begin = milliseconds(CLOCK_MONOTONIC);
    const double workBegin = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    const std::size_t count = step();
    std::printf("%s\t%.3f\t%.3f\t%zu\n", name, milliseconds(CLOCK_MONOTONIC) - begin,
                milliseconds(CLOCK_THREAD_CPUTIME_ID) - workBegin, count);
}

void readInto(TextBuffer& text, const char* path) {
    const platform::FileDescriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    std::array<char, 128 * 1024> piece{};
    for (;;) {
        const auto length = ::read(file.get(), piece.data(), piece.size());
        if (length <= 0) return;
        text.append({piece.data(), static_cast<std::size_t>(length)});
    }
}

std::size_t hitCount(const std::shared_ptr<const LinedText>& text, std::string_view word,
                     bool matchCase) {
    window::SearchRun run(text, window::TextPattern(word, matchCase));
    for (std::size_t block = 0; block < run.blockCount(); ++block) run.count(block);
    return run.hitCount();
}

std::size_t paste(const std::shared_ptr<const LinedText>& text) {
    shell::Utf8MimeData data;
    data.offer(platform::PasteboardType::string, text, text->text());
    return static_cast<std::size_t>(data.data(QStringLiteral("text/plain")).size());
}

struct Page {
    const char* name;
    std::string_view piece;  // which its lines repeat
};

constexpr Page pages[] = {
    {"page of words", "words, "},
    {"page of tabs between letters", "a\t"},
    {"page of control characters", "\x01"},
    {"page of control characters between letters", "a\x01"},
    {"page of Hebrew", "\u05D0\u05D1\u05D2 "},
    {"page of Hebrew with marks of direction", "\u05D0\u05D1\u05D2\u202E"},
    {"page of bytes that are no text", "\xFF"},
};

/// Page after page, each a little farther to the right.
void measurePages(const Page& page) {
    constexpr std::size_t lineLength = 20'000;
    constexpr int count = 11;
    auto bytes = std::make_shared<TextBuffer>();
    for (int line = 0; line < count * 100; ++line) {
        for (std::size_t length = 0; length < lineLength; length += page.piece.size()) {
            bytes->append(page.piece);
        }
        bytes->append('\n');
    }
    window::TextOutputView view;
    view.resize(1280, 800);
    view.setText(std::make_shared<LinedText>(bytes));
    view.grab();
    for (int i = 0; i < count; ++i) {
        view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        view.horizontalScrollBar()->setValue(i * 300);
        measure(page.name, [&view] { return static_cast<std::size_t>(view.grab().height()); });
    }
}

void measureSteps(const char* path, std::string_view word) {
    auto bytes = std::make_shared<TextBuffer>();
    std::shared_ptr<const LinedText> text;
    readInto(*bytes, path);
    measure("lines", [&] {
        text = std::make_shared<LinedText>(bytes);
        return text->lineCount();
    });
    measure("find", [&] { return hitCount(text, word, true); });
    measure("find in any case", [&] { return hitCount(text, word, false); });
    measure("paste", [&] { return paste(text); });
}

}  // namespace
}  // namespace marquell::bench

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    marquell::toolkit::furnish();
    if (count != 3) return 1;
    marquell::bench::measureSteps(arguments[1], arguments[2]);
    for (const auto& page : marquell::bench::pages) marquell::bench::measurePages(page);
    return 0;
}
