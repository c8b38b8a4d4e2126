// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <cmath>
#include <random>
#include <stdexcept>

#include "shell/EventLoop.h"
#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/VisibleText.h"
#include "window/preview/FindBar.h"
#include "window/preview/TextOutputView.h"
#include "window/preview/TextPattern.h"
#include "window/preview/TextPreview.h"
#include "window/preview/TextSearch.h"
#include "window/preview/TextSteps.h"

namespace marquell::window {
namespace {

using testing::ElementsAre;

std::shared_ptr<const platform::LinedText> lined(std::string_view text) {
    auto buffer = std::make_shared<platform::TextBuffer>();
    buffer->append(text);
    return std::make_shared<platform::LinedText>(buffer);
}

std::string times(std::size_t count, std::string_view text) {
    std::string all;
    all.reserve(count * text.size());
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

QFont sized(QFont font, int px) {
    font.setPixelSize(px);
    return font;
}

class TextPreviewTest : public testing::Test {
protected:
    TextPreviewTest() {
        toolkit::LayoutRoot::install(&window);
        toolkit::addSubview(&window, &preview);
        toolkit::LayoutConstraintMaker make(&preview);
        toolkit::addConstraints(&window, make.fillContainer().constraints);
        window.resize(640, 480);
        window.show();
        QApplication::setActiveWindow(&window);
        toolkit::LayoutRoot::at(&window)->layoutNow();
        view.setFocus();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    std::string copied() {
        QGuiApplication::clipboard()->setText(QString());
        view.copy();
        const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
        return data->data(QStringLiteral("text/plain")).toStdString();
    }
    std::string selected() const {
        return std::string(
            view.text()->text().substr(view.selection().start, view.selection().length()));
    }
    QPoint pointAt(std::size_t offset) {
        return view.characterRect(offset).center() -
               QPoint(view.characterRect(offset).width() / 2 - 1, 0);
    }

    template <typename Child>
    Child& child() {
        for (QWidget* each : preview.findChildren<QWidget*>()) {
            if (auto* found = dynamic_cast<Child*>(each)) return *found;
        }
        throw std::logic_error("no such child");
    }
    FindBar& bar() { return child<FindBar>(); }
    QLineEdit& field() { return child<QLineEdit>(); }
    std::string status() { return child<toolkit::Label>().text().toStdString(); }
    void expectStatus(const std::string& expected) {
        EXPECT_TRUE(tests::waitUntil([&] { return status() == expected; }, std::chrono::seconds(5)))
            << status();
    }
    void findWords(const char* words) {
        preview.find();
        field().selectAll();
        QTest::keyClicks(&field(), QString::fromUtf8(words));
    }

    QWidget window;
    TextPreview& preview = *new TextPreview;
    TextOutputView& view = *preview.textOutputTextView();
};

TEST(VisibleText, HasAMarkForWhatDisguises) {
    EXPECT_EQ(toolkit::visibleText(QStringLiteral("a\u202egpj.\u00ad\u200b\ufeff\t")),
              QStringLiteral("a‹U+202E›gpj.‹U+00AD›‹U+200B›‹U+FEFF›‹U+0009›"));
    // A family joined to one picture, a Persian word, a heart in colours.
    const QString joined = QStringLiteral("👩\u200d👧 می\u200cخواهم ❤\ufe0f");
    EXPECT_EQ(toolkit::visibleText(joined), joined);
}

TEST_F(TextPreviewTest, TheKeyboardGoesFromCharacterToCharacterAndCopiesTheirBytes) {
    const std::string text = "a\t\u202Ee\u0301\r\n👩\u200d👧\x1b\r\u05D0\u05D1 \xFF.";
    preview.showText(lined(text));
    const std::vector<std::string> characters = {"a",        "\t",   "\u202E", "e\u0301", "\r\n",
                                                 "👩\u200d👧", "\x1b", "\r",     "\u05D0",  "\u05D1",
                                                 " ",        "\xFF", "."};
    for (const auto& character : characters) {
        press(Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(copied(), character);
        press(Qt::Key_Left);
        press(Qt::Key_Right);
    }
    EXPECT_EQ(view.caretPosition(), text.size());
    for (std::size_t i = 0; i < characters.size(); ++i) press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(copied(), text);
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(), text);
}

TEST_F(TextPreviewTest, TheKeyboardGoesByWordsLinesAndPages) {
    preview.showText(lined("one, \"two_2\"\n\nfour\n" + times(100, "line\n")));
    std::vector<std::size_t> places;
    const auto go = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(key, modifiers);
        places.push_back(view.caretPosition());
    };
    for (int i = 0; i < 5; ++i) go(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_THAT(places, ElementsAre(6, 12, 13, 14, 18));
    places.clear();
    for (int i = 0; i < 3; ++i) go(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_THAT(places, ElementsAre(14, 13, 12));
    places.clear();
    go(Qt::Key_Down);
    go(Qt::Key_Down);
    go(Qt::Key_Up);
    go(Qt::Key_Up);
    EXPECT_THAT(places, ElementsAre(13, 18, 13, 12)) << "the column is kept over short lines";
    press(Qt::Key_PageDown);
    EXPECT_GT(view.verticalScrollBar()->value(), 5);
    press(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(view.selection().end, view.text()->text().size());
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
}

TEST_F(TextPreviewTest, TheMouseSelectsCharactersWordsAndLines) {
    preview.showText(lined("one two\nthree fo\u0301ur\r\n" + times(300, "far\n")));
    QWidget* const page = view.viewport();
    QTest::mousePress(page, Qt::LeftButton, {}, pointAt(1));
    QTest::mouseMove(page, pointAt(5));
    QTest::mouseRelease(page, Qt::LeftButton, {}, pointAt(5));
    EXPECT_EQ(selected(), "ne t");
    QTest::mouseClick(page, Qt::LeftButton, Qt::ShiftModifier, pointAt(9));
    EXPECT_EQ(selected(), "ne two\nt");
    QTest::mouseDClick(page, Qt::LeftButton, {}, pointAt(15));
    EXPECT_EQ(selected(), "fo\u0301ur");
    QTest::mouseClick(page, Qt::LeftButton, {}, pointAt(15));
    EXPECT_EQ(selected(), "three fo\u0301ur\r\n");
    QTest::mousePress(page, Qt::LeftButton, {}, pointAt(0),
                      QApplication::doubleClickInterval() + 1);
    QTest::mouseMove(page, QPoint(20, page->height() + 30));
    EXPECT_TRUE(tests::waitUntil([&] { return view.verticalScrollBar()->value() > 5; }))
        << "dragging on scrolls on";
    QTest::mouseRelease(page, Qt::LeftButton);
    EXPECT_EQ(view.selection().start, 0U);
}

TEST_F(TextPreviewTest, NothingIsShownInAnotherOrderThanItIsWritten) {
    const std::string text = "x\u202Egpj.exe\u2066\u200F\"\u05D0\u05D1\",\"\u05D2\u05D3\"\u202C!";
    preview.showText(lined(text));
    int last = -1;
    for (std::size_t at = 0; at < text.size(); at = nextCharacter(*view.text(), at)) {
        const QRect rect = view.characterRect(at);
        const bool isHebrew = text.compare(at, 1, "\xD7") == 0;
        EXPECT_TRUE(isHebrew || rect.left() > last) << at;
        last = std::max(last, rect.left());
    }
    EXPECT_GT(view.characterRect(1).width(), 6 * view.characterRect(0).width()) << "a mark";
}

TEST_F(TextPreviewTest, ATabIsSeenAndEndsAtAStop) {
    preview.showText(lined("\t\n"));
    const QRect first = view.characterRect(0);
    for (std::size_t before = 1; before < 60; ++before) {
        preview.showText(lined(std::string(before, 'x') + "\t."));
        const QRect tab = view.characterRect(before);
        // Stops may lie between px.
        const double stops = (tab.left() + tab.width() - first.left()) / double(first.width());
        EXPECT_NEAR(stops, std::round(stops), 0.1) << before;
        EXPECT_GE(3 * tab.width(), view.characterRect(0).width() - 1) << before;
        EXPECT_EQ(view.characterRect(before + 1).left(), tab.left() + tab.width());
    }
}

TEST_F(TextPreviewTest, FindsPlacesInALineOfAnyLength) {
    std::mt19937 random(2);
    const std::string_view pieces[] = {
        "plain text of sixty-four letters or more, as most of it is, and then ",
        "\u00E9",
        "e\u0301",
        "\t",
        "\u202E",
        "\x01",
        "👩\u200d👧"};
    std::string text = "first\n";
    while (text.size() < 10'000'000) text += pieces[random() % std::size(pieces)];
    preview.showText(lined(text + "\nlast"));
    for (int i = 0; i < 60; ++i) {
        const std::size_t any = 6 + random() % 10'000'000;
        const std::size_t offset = characterStart(*view.text(), std::min(any, text.size()));
        view.showPlace(offset);
        view.grab();  // lays out what is in view
        const QRect seen = view.characterRect(offset);
        ASSERT_TRUE(view.viewport()->rect().contains(seen.left(), seen.center().y())) << offset;
        ASSERT_EQ(view.offsetAt(seen.topLeft()), offset);
    }
}

TEST_F(TextPreviewTest, TextsOfAnySizeAreThereAtOnce) {
    const auto many = lined(times(50'000'000 / 80, std::string(79, 'x') + "\n"));
    const auto one = lined(times(20'000'000, "y") + "z");
    preview.showText(many);
    view.grab();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    preview.showText(one);
    press(Qt::Key_End, Qt::ShiftModifier);
    view.grab();
    EXPECT_EQ(view.selection().length(), one->text().size());
    EXPECT_TRUE(view.viewport()->rect().contains(view.characterRect(20'000'000)));
    EXPECT_EQ(view.offsetAt(view.characterRect(19'999'990).topLeft()), 19'999'990U);
    EXPECT_EQ(QGuiApplication::clipboard()->text().size(), 50'000'000);
}

TEST_F(TextPreviewTest, StaysAtItsPlaceFromTextToText) {
    const auto wide = times(500, std::string(300, 'x') + "\n");
    preview.showText(lined(wide));
    view.verticalScrollBar()->setValue(123);
    view.horizontalScrollBar()->setValue(45);
    preview.showMessage(QStringLiteral("Waiting"));
    EXPECT_EQ(view.text(), nullptr);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(), "");
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
    preview.showMessage(QStringLiteral("Still waiting"));
    preview.showText(lined(wide + wide));
    EXPECT_EQ(view.verticalScrollBar()->value(), 123);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 45);
    const QFont font = QApplication::font();
    const int height = view.characterRect(0).height();
    toolkit::setInterfaceFonts(sized(font, 40), sized(font, 40));
    EXPECT_GT(view.characterRect(0).height(), height);
    EXPECT_EQ(view.verticalScrollBar()->value(), 123);
    toolkit::setInterfaceFonts(font, QFontDatabase::systemFont(QFontDatabase::FixedFont));
    preview.showText(lined("short"));
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    EXPECT_EQ(view.caretPosition(), 0U);
}

TEST_F(TextPreviewTest, FindsForwardBackwardAndAround) {
    int pressed = 0;
    QObject::connect(new QShortcut(Qt::Key_Return, &window), &QShortcut::activated,
                     [&pressed] { ++pressed; });
    preview.showText(lined("Word one\nword two\nsword\n"));
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &field());
    QTest::keyClicks(&field(), QStringLiteral("wORd"));
    expectStatus("1 of 3");
    press(Qt::Key_Return);
    expectStatus("2 of 3");
    EXPECT_EQ(view.selection(), (TextRange{9, 13}));
    press(Qt::Key_F3);
    press(Qt::Key_F3);
    expectStatus("1 of 3");
    press(Qt::Key_Return, Qt::ShiftModifier);
    expectStatus("3 of 3");
    child<toolkit::CheckBoxBrick>().click();
    expectStatus("Not found");
    EXPECT_EQ(view.selection(), (TextRange{19, 23})) << "stays";
    findWords("w");
    expectStatus("3 of 3");
    press(Qt::Key_Escape);
    EXPECT_TRUE(bar().isHidden());
    EXPECT_EQ(QApplication::focusWidget(), &view);
    EXPECT_EQ(pressed, 0) << "Return is not for the window here";
}

TEST_F(TextPreviewTest, FindsInAnotherTextAndInNone) {
    preview.showText(lined(times(1000, "far away, ") + "here"));
    findWords("here");
    expectStatus("1 of 1");
    const auto large = lined(times(40'000'000, "x") + "here" + times(1000, "here"));
    preview.showText(large);
    preview.findNext();  // in the middle of the search
    preview.showText(lined("nothing"));
    expectStatus("Not found");
    preview.showText(large);
    expectStatus("1,001 found");
    preview.findNext();
    expectStatus("1 of 1,001");
    EXPECT_EQ(view.selection().start, 40'000'000U);
    preview.showMessage(QStringLiteral("here"));
    EXPECT_EQ(status(), "");
    preview.findNext();
    preview.showText(large);
    preview.findPrevious();
    delete &preview;  // as quitting does
}

TEST(TextPattern, TakesCaseAndCompositionForTheSameUnlessTold) {
    struct Row {
        const char* words;
        bool matchCase;
        const char* text;
        std::vector<TextRange> hits;
    };
    for (const Row& row : {
             Row{"aa", true, "aaaaa", {{0, 2}, {2, 4}}},
             Row{"Ab", true, "ab Ab", {{3, 5}}},
             Row{"\u00C9T\u00C9", false, "\u00E9t\u00E9 e\u0301te\u0301", {{0, 5}, {6, 13}}},
             Row{"e", false, "\u00E9 e\u0301 E", {{7, 8}}},
             Row{"e", true, "\u00E9 e\u0301 e", {{7, 8}}},
             Row{"10k", false, "10\u212A 10K", {{0, 5}, {6, 9}}},
             Row{"\u0436", false, "a\u0416\xFF\u0436", {{1, 3}, {4, 6}}},
             Row{"\u0436", false, "abc", {}},
         }) {
        std::vector<TextRange> hits;
        const std::string_view text = row.text;
        TextPattern(row.words, row.matchCase).find(text, {0, text.size()}, hits);
        EXPECT_EQ(hits, row.hits) << row.words << " in " << text;
    }
}

TEST(TextSearch, FindsWhatAPlainSearchFindsInEachDirection) {
    std::mt19937 random(3);
    std::string text;
    while (text.size() < 100'000)
        text += random() % 500 == 0 ? "needle" : random() % 9 ? "n" : "\u00E9";
    text += "needle";
    std::vector<std::size_t> expected;
    for (auto at = text.find("needle"); at != std::string::npos; at = text.find("needle", at + 1)) {
        expected.push_back(at);
    }
    for (const bool matchCase : {true, false}) {
        TextSearch search;
        search.start(lined(text), TextPattern("needle", matchCase), text.size() / 2);
        ASSERT_TRUE(tests::waitUntil([&] { return search.isFinished(); }));
        EXPECT_EQ(search.hitCount(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::size_t next = expected[(i + 1) % expected.size()];
            ASSERT_EQ(search.hitFrom(expected[i] + 1).hit->start, next);
            ASSERT_EQ(search.hitBefore(next).hit->start, expected[i]);
            ASSERT_EQ(search.numberBefore(expected[i]), i);
            ASSERT_THAT(search.hitsIn({expected[i] + 5, expected[i] + 6}), testing::SizeIs(1));
        }
    }
}

TEST_F(TextPreviewTest, TellsAssistiveProgramsAnyPart) {
    const std::string text = times(5000, "caf\u00E9 👩 zwei\r\n") + "end";
    const QString whole = QString::fromStdString(text);
    preview.showText(lined(text));
    auto* const told = QAccessible::queryAccessibleInterface(&view);
    QAccessibleTextInterface& words = *told->textInterface();
    EXPECT_TRUE(told->state().readOnly);
    EXPECT_EQ(words.characterCount(), whole.size());
    EXPECT_EQ(words.text(30'000, 30'020), whole.mid(30'000, 20));
    int start = 0;
    int end = 0;
    const int inLine = 30'001 % 14;
    EXPECT_EQ(words.textAtOffset(30'001, QAccessible::LineBoundary, &start, &end),
              whole.mid(30'001 - inLine, 14));
    EXPECT_EQ(std::pair(start, end), std::pair(30'001 - inLine, 30'015 - inLine));
    words.setCursorPosition(14 + 5);
    EXPECT_EQ(words.cursorPosition(), 19);
    EXPECT_EQ(view.caretPosition(), 17U + 6U);
    EXPECT_EQ(words.textAtOffset(-2, QAccessible::CharBoundary, &start, &end), QStringLiteral("👩"));
    words.setSelection(0, 8, 12);
    words.selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(8, 12));
    EXPECT_EQ(selected(), "zwei");
    EXPECT_EQ(words.offsetAtPoint(words.characterRect(8).center()), 8);
}

}  // namespace
}  // namespace marquell::window
