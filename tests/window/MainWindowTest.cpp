// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAccessible>
#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QTimer>

#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/walls/TabWall.h"
#include "window/MainWindowFixture.h"
#include "window/StatusLine.h"
#include "window/preview/TextOutputView.h"

namespace marquell::tests {
namespace {

using testing::ElementsAre;

/// Types a name into the dialog that the event loop is about to open, and presses its button.
void answerDialog(QObject* context, const std::string& name, const QString& button) {
    QTimer::singleShot(0, context, [=] {
        auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        field->setFocus();
        field->clear();
        QTest::keyClicks(field, QString::fromStdString(name));
        for (QPushButton* each : dialog->findChildren<QPushButton*>()) {
            if (!each->isVisible() || each->text() != button) continue;
            ASSERT_TRUE(QTest::qWaitFor([each] { return each->isEnabled(); }));
            QTest::mouseClick(each, Qt::LeftButton);
            return;
        }
    });
}

/// What the program without a window makes of the same settings.
std::string listed(const TemporaryFolder& config, const std::string& source) {
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(config.path()));
    program.setProcessEnvironment(environment);
    program.start(QString::fromUtf8(MARQUELL_LIST),
                  {QStringLiteral("--use-settings"), QString::fromStdString(source)});
    program.waitForFinished();
    return program.readAllStandardOutput().toStdString();
}

class MainWindowTest : public MainWindowFixture {
protected:
    MainWindowTest() {
        for (const char* name : {"b 10.txt", "b 2.txt", "ä.txt"}) writeFile(root / name, "x");
    }
};

TEST_F(MainWindowTest, FromDroppedFolderToSavedFileAsTheListProgramWritesIt) {
    open();
    settle();
    dropFiles({root.path()}, window->centralWidget());
    ASSERT_TRUE(waitUntil([this] { return !sources().empty(); }));
    choose(popUp(QStringLiteral("Output Format")), 2);
    choose(popUp(QStringLiteral("Indentation:")), 5);
    QTest::mouseClick(find<toolkit::CheckBoxBrick>(QStringLiteral("Folders")), Qt::LeftButton);
    choose(popUp(QStringLiteral("First:")), 1);
    ASSERT_TRUE(waitUntil([this] { return model->firstSortMode->value() == 1; }));
    settle();
    const std::string saved = config / "saved.json";
    answerDialog(window.get(), saved, QStringLiteral("Save"));
    press(Qt::Key_Return, window.get());
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(saved); }));
    settle();
    ASSERT_TRUE(defaults->synchronize());
    EXPECT_EQ(contentOf(saved), listed(config, root.path()));
    EXPECT_EQ(contentOf(saved).substr(0, 20), "[\n    {\n        \"nam");
}

TEST_F(MainWindowTest, CopiesToTheClipboardAndSaysSoOnItsButton) {
    open();
    model->sourceList.add({root.path()}, false);
    choose(popUp(QStringLiteral("Output Format")), 5);
    settle();
    EXPECT_EQ(actionButton()->title(), QStringLiteral("Copy to Clipboard"));
    QTest::mouseClick(actionButton(), Qt::LeftButton);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    ASSERT_GE(data->formats().size(), 2);
    EXPECT_EQ(data->formats().front(), QStringLiteral("text/tab-separated-values"));
    EXPECT_EQ(data->data(QStringLiteral("text/tab-separated-values")).toStdString(),
              engine->currentOutputString()->view());
    EXPECT_EQ(data->text().toStdString(), engine->currentOutputString()->view());
}

TEST_F(MainWindowTest, EachFormatHasItsPanelAndSharedSettingsStay) {
    open();
    auto* formats = popUp(QStringLiteral("Output Format"));
    const auto has = [this](const char* label) {
        return popUp(QString::fromUtf8(label)) != nullptr;
    };
    choose(popUp(QStringLiteral("Encoding:")), 11);
    EXPECT_EQ(model->encodingMode->value(), 11);
    choose(formats, 1);
    EXPECT_TRUE(has("Multi-Line:"));
    EXPECT_EQ(popUp(QStringLiteral("Encoding:"))->currentText(), QStringLiteral("Japanese EUC"));
    choose(formats, 3);
    EXPECT_TRUE(has("Table Headers:") && !has("Encoding:") && !has("Include:"));
    choose(popUp(QStringLiteral("Line breaks:")), 2);
    choose(formats, 4);
    EXPECT_TRUE(has("Column Class:"));
    choose(formats, 5);
    EXPECT_TRUE(has("Include:") && !has("Line breaks:"));
    choose(formats, 0);
    EXPECT_EQ(popUp(QStringLiteral("Line breaks:"))->currentText(),
              QStringLiteral("Windows (CRLF)"));
    EXPECT_TRUE(has("Include:") && !has("Column Class:"));
}

TEST_F(MainWindowTest, ShowsTheTabOfItsModeOnceThereIsData) {
    defaults->setObject(1, "previewMode");
    open();
    auto* tabs = all<toolkit::TabWall>().front();
    EXPECT_EQ(tabs->currentIndex(), 0);
    settle();
    EXPECT_EQ(tabs->currentIndex(), 2);
    auto* modes = all<toolkit::SegmentedControlBrick>().front();
    EXPECT_EQ(modes->indexOfSelectedItem(), 1);
    model->previewMode->setValue(0);
    EXPECT_EQ(tabs->currentIndex(), 1);
    model->previewMode->setValue(7);
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_EQ(modes->indexOfSelectedItem(), -1);
}

TEST_F(MainWindowTest, ReturnCommitsFromAnywhereButAnOpenList) {
    open();
    settle();
    choose(popUp(QStringLiteral("Output Format")), 4);
    settle();
    QGuiApplication::clipboard()->clear();
    auto* list = popUp(QStringLiteral("Null values:"));
    list->setFocus();
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Return);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
    settle();
    press(Qt::Key_Enter, list);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("<table>")));
}

TEST_F(MainWindowTest, KeepsItsFrameForTheNextRun) {
    open();
    window->setGeometry(30, 40, 950, 650);
    window->close();
    close();
    model = std::make_unique<pipeline::DataModel>(defaults);
    engine = std::make_unique<pipeline::OutputEngine>(*model, pasteboard);
    window = window::MainWindow::makeMainWindow(*model, *engine);
    EXPECT_EQ(window->geometry(), QRect(30, 40, 950, 650));
}

TEST_F(MainWindowTest, StatusLineMovesNothingWhenItsTextChanges) {
    open();
    settle();
    auto* line = all<window::StatusLine>().front();
    runFor(std::chrono::milliseconds(50));  // until the window has come to rest
    struct LayoutCounter : QObject {
        int requests = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::LayoutRequest) ++requests;
            return false;
        }
    } counter;
    window->centralWidget()->installEventFilter(&counter);
    line->parentWidget()->installEventFilter(&counter);
    line->setText(QStringLiteral("a text that is longer than the one before"));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(counter.requests, 0);
    const auto* accessible = QAccessible::queryAccessibleInterface(line);
    EXPECT_EQ(accessible->role(), QAccessible::StatusBar);
    EXPECT_EQ(accessible->text(QAccessible::Name), line->text()) << "at once";
}

TEST_F(MainWindowTest, ClearEmptiesTheSourcesAndTheFirstFocusIsOnAdd) {
    open();
    EXPECT_EQ(QApplication::focusWidget(), button(QStringLiteral("Add …")));
    model->sourceList.add({root.path()}, false);
    QTest::mouseClick(button(QStringLiteral("Clear")), Qt::LeftButton);
    EXPECT_THAT(sources(), ElementsAre());
}

}  // namespace
}  // namespace marquell::tests
