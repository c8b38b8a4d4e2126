// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <latch>

#include "platform/Surroundings.h"
#include "window/panels/AlertPanel.h"
#include "window/panels/SavePanel.h"
#include "window/panels/SourcePanel.h"

namespace marquell::window {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

class PanelsTest : public testing::Test {
protected:
    /// Qt's dialogs keep their look from run to run; here it is that of the first one.
    static void SetUpTestSuite() {
        static const tests::TemporaryFolder config;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, text(config.path()));
    }

    PanelsTest() {
        std::filesystem::create_directory(root / "sub");
        for (const char* name : {"a \"b\".txt", "c.txt", ".hidden", "sub/in.txt"}) {
            tests::writeFile(root / name, name);
        }
    }

    template <typename T>
    static T* part(const char* name) {
        return dialog().findChild<T*>(QLatin1String(name));
    }
    static QFileDialog& dialog() {
        return dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
    }
    static QLineEdit* nameField() { return part<QLineEdit>("fileNameEdit"); }
    static QPushButton* button(const char* title) {
        for (QAbstractButton* each : part<QDialogButtonBox>("buttonBox")->buttons()) {
            if (each->text() == QLatin1String(title)) return dynamic_cast<QPushButton*>(each);
        }
        return nullptr;
    }
    static void type(const std::string& name) {
        nameField()->setFocus();
        nameField()->clear();
        QTest::keyClicks(nameField(), text(name));
    }
    static void press(Qt::Key key) { QTest::keyClick(dialog().focusWidget(), key); }

    /// Shows the test's folder, and waits until its entries are there and in order.
    void enterRoot() {
        dialog().setViewMode(QFileDialog::List);
        dialog().setDirectory(text(root.path()));
        const bool showsAll = dialog().acceptMode() == QFileDialog::AcceptOpen;
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return rowOf("sub").row() == 0 && (!showsAll || rowOf("c.txt").row() == 2); }));
    }
    static QAbstractItemView* view() { return part<QAbstractItemView>("listView"); }
    static QModelIndex rowOf(const char* name) {
        const QModelIndex folder = view()->rootIndex();
        for (int row = 0; row < view()->model()->rowCount(folder); ++row) {
            const QModelIndex index = view()->model()->index(row, 0, folder);
            if (index.data().toString() == QLatin1String(name)) return index;
        }
        return {};
    }
    static void click(const char* name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        view()->setFocus();
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers,
                          view()->visualRect(rowOf(name)).center());
    }

    /// Runs a panel with `user` at its controls.
    template <typename Run>
    auto run(const Run& panel, const std::function<void()>& user) {
        QTimer::singleShot(0, &window, [&user] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog()));
            user();
        });
        return panel();
    }
    std::vector<std::string> add(const std::function<void()>& user) {
        return run([this] { return runSourcePanel(&window); }, user);
    }
    std::optional<std::string> save(const std::function<void()>& user) {
        return run([this] { return runSavePanel(&window, offer); }, user);
    }

    tests::TemporaryFolder root;
    QWidget window;
    pipeline::SaveOffer offer{{"csv", "text"}, [] { return std::nullopt; }};
};

TEST_F(PanelsTest, AddsWhatIsTyped) {
    EXPECT_THAT(add([&] {
                    type(root / "sub");
                    press(Qt::Key_Return);
                }),
                ElementsAre(root / "sub"));
    EXPECT_THAT(add([&] {
                    EXPECT_EQ(dialog().directory().absolutePath(), text(root.path()))
                        << "where the last one was";
                    type("a \"b\".txt");
                    press(Qt::Key_Return);
                }),
                ElementsAre(root / "a \"b\".txt"));
    EXPECT_THAT(add([&] {
                    type("\"c.txt\" \".hidden\"");
                    press(Qt::Key_Return);
                }),
                ElementsAre(root / "c.txt", root / ".hidden"));
    EXPECT_THAT(add([] { press(Qt::Key_Escape); }), IsEmpty());
}

TEST_F(PanelsTest, AddsFilesAndFoldersTogether) {
    EXPECT_THAT(add([this] {
                    enterRoot();
                    click("c.txt");
                    click("sub", Qt::ControlModifier);
                    click("a \"b\".txt", Qt::ControlModifier);
                    QTest::mouseClick(button("Add"), Qt::LeftButton);
                }),
                ElementsAre(root / "sub", root / "a \"b\".txt", root / "c.txt"));
    EXPECT_THAT(add([this] {
                    enterRoot();
                    click("sub");
                    press(Qt::Key_Enter);
                }),
                ElementsAre(root / "sub"));
    EXPECT_THAT(add([this] {
                    enterRoot();
                    click("sub");
                    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                                       view()->visualRect(rowOf("sub")).center());
                    EXPECT_EQ(dialog().directory().dirName(), QStringLiteral("sub"));
                    QTest::mouseClick(button("Add"), Qt::LeftButton);
                }),
                ElementsAre(root / "sub"))
        << "the folder that is open";
    EXPECT_THAT(add([this] {
                    enterRoot();
                    QTest::keyClick(&dialog(), Qt::Key_H, Qt::ControlModifier);
                    ASSERT_TRUE(QTest::qWaitFor([] { return rowOf(".hidden").isValid(); }));
                    click("sub");
                    QTest::keyClick(view(), Qt::Key_Down, Qt::AltModifier);
                    ASSERT_TRUE(QTest::qWaitFor([] { return rowOf("in.txt").isValid(); }));
                    click("in.txt");
                    press(Qt::Key_Return);
                }),
                ElementsAre(root / "sub/in.txt"));
}

TEST_F(PanelsTest, SavesUnderTheSuggestedOrATypedName) {
    EXPECT_EQ(save([this] {
                  enterRoot();
                  press(Qt::Key_Return);
              }),
              root / "File List.csv");
    EXPECT_EQ(save([] {
                  type("list");
                  press(Qt::Key_Return);
              }),
              root / "list.csv")
        << "where the last one was";
    EXPECT_EQ(save([] {
                  auto* types = part<QComboBox>("fileTypeCombo");
                  types->setFocus();
                  press(Qt::Key_Down);
                  press(Qt::Key_Return);
                  EXPECT_EQ(nameField()->text(), QStringLiteral("File List.text"));
                  type("list.md");
                  press(Qt::Key_Return);
              }),
              root / "list.md");
    EXPECT_EQ(save([this] {
                  type(root / "sub/");
                  press(Qt::Key_Return);
                  EXPECT_EQ(dialog().directory().dirName(), QStringLiteral("sub"));
                  press(Qt::Key_Escape);
              }),
              std::nullopt);
}

/// Without the rights that root has, as long as it lives.
class Powerless {
public:
    Powerless() { set(nobody); }
    Powerless(const Powerless&) = delete;
    Powerless& operator=(const Powerless&) = delete;
    ~Powerless() { set(0); }

private:
    static constexpr uid_t nobody = 65534;
    static void set(uid_t user) { EXPECT_TRUE(::getuid() != 0 || ::seteuid(user) == 0); }
};

TEST_F(PanelsTest, RefusesWhatCannotBeSavedTo) {
    ASSERT_EQ(::mkfifo((root / "pipe.x").c_str(), 0600), 0);
    ASSERT_EQ(::chmod(root.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod((root / "sub").c_str(), 0555), 0);
    ASSERT_EQ(::chmod((root / "c.txt").c_str(), 0444), 0);
    std::filesystem::create_symlink(root / "nowhere/x", root / "link.x");
    struct Row {
        const char* name;
        const char* reason;  ///< empty if it can be saved to
    };
    const auto check = [this](const Row& row) {
        const Powerless powerless;
        type(row.name);
        EXPECT_EQ(nameField()->text().toStdString(), row.name);
        const std::string reason = part<QLabel>("refusal")->text().toStdString();
        EXPECT_THAT(reason, HasSubstr(row.reason));
        EXPECT_EQ(reason.empty(), row.reason == std::string());
        EXPECT_EQ(button("Save")->accessibleDescription().toStdString(), reason);
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog().isVisible());
    };
    const auto answer = save([&] {
        enterRoot();
        for (const Row& row : {Row{"sub", "“sub” is a folder."},
                               {"pipe.x", "“pipe.x” is not an ordinary file."},
                               {"none/x", "There is no folder “none”."},
                               {"c.txt/x", "There is no folder “c.txt”."},
                               {"none/", "There is no folder “none”."},
                               {"c.txt/", "There is no folder “c.txt”."},
                               {"link.x", "There is no folder"},
                               {"a\"b\"", "quotation marks"},
                               {"c.txt", "“c.txt” is protected from writing."},
                               {"sub/x", "folder “sub”: it is protected from writing."},
                               {"", ""}}) {
            check(row);
        }
        type("new");
        EXPECT_EQ(part<QLabel>("refusal")->text(), QString());
        EXPECT_TRUE(button("Save")->isEnabled());
        press(Qt::Key_Escape);
    });
    EXPECT_EQ(answer, std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(root / "new.csv"));
}

TEST_F(PanelsTest, AsksBeforeAFileIsReplaced) {
    std::vector<QMessageBox::StandardButton> answers = {QMessageBox::Yes, QMessageBox::No};
    QTimer user;  // not a wait: the question runs inside of what it would wait in
    QObject::connect(&user, &QTimer::timeout, [&answers] {
        const auto* question = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (question == nullptr || answers.empty()) return;
        const auto answer = answers.back();
        answers.pop_back();
        question->button(answer)->click();
    });
    user.start(5);
    EXPECT_EQ(save([&] {
                  enterRoot();
                  type("c.txt");
                  QTest::mouseClick(button("Save"), Qt::LeftButton);
                  EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() == 1; }));
                  EXPECT_TRUE(dialog().isVisible());
                  EXPECT_EQ(dialog().focusWidget(), nameField()) << "for another name";
                  EXPECT_EQ(nameField()->selectedText(), QStringLiteral("c"));
                  press(Qt::Key_Return);
              }),
              root / "c.txt");
}

TEST_F(PanelsTest, RefusesATextThatTheEncodingLacks) {
    std::latch mayEnd(1);
    const pipeline::LackingCharacter lacking{U'\u65E5', platform::TextEncoding::isoLatin1, 11,
                                             "Name"};
    offer.findLackingCharacter = [&]() -> std::optional<pipeline::LackingCharacter> {
        mayEnd.wait();
        return lacking;
    };
    EXPECT_EQ(save([&] {
                  enterRoot();
                  press(Qt::Key_Return);
                  EXPECT_TRUE(dialog().isVisible()) << "waits";
                  EXPECT_FALSE(button("Save")->isEnabled());
                  mayEnd.count_down();
                  const auto* line = part<QLabel>("refusal");
                  EXPECT_TRUE(QTest::qWaitFor([&] {
                      return line->text() == QStringLiteral(
                                                 "Western (ISO Latin 1) has no “日” (row 12, "
                                                 "column “Name”). Choose another encoding.");
                  })) << line->text().toStdString();
                  press(Qt::Key_Return);
                  EXPECT_TRUE(dialog().isVisible());
                  press(Qt::Key_Escape);
              }),
              std::nullopt);
    std::latch mayEndWell(1);
    offer.findLackingCharacter = [&]() -> std::optional<pipeline::LackingCharacter> {
        mayEndWell.wait();
        return std::nullopt;
    };
    EXPECT_EQ(save([&] {
                  enterRoot();
                  press(Qt::Key_Return);
                  mayEndWell.count_down();
              }),
              root / "File List.csv")
        << "once the text is known to be whole";
}

TEST_F(PanelsTest, SavesToThePathThatTheFieldWasGiven) {
    tests::writeFile(root / "sub/list.csv", "old");
    const auto path = save([this] {
        dialog().setDirectory(text(root.path()));
        type(root / "sub/list.csv");
        button("Cancel")->setFocus();
        nameField()->setText(text(root / "sub/lis.csv"));
        nameField()->setText(text(root / "sub/list.csv"));
        EXPECT_EQ(nameField()->text(), text(root / "sub/list.csv"));
        auto* asked = new QTimer(&dialog());
        QObject::connect(asked, &QTimer::timeout, asked, [asked] {
            auto* question = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question == nullptr) return;
            asked->stop();
            QTest::mouseClick(question->button(QMessageBox::Yes), Qt::LeftButton);
        });
        asked->start(1);
        QTest::mouseClick(button("Save"), Qt::LeftButton);
    });
    EXPECT_EQ(path, root / "sub/list.csv");
}

TEST_F(PanelsTest, EndWithTheWindowAndDuringTheSearch) {
    auto mayEnd = std::make_shared<std::latch>(1);
    auto hasEnded = std::make_shared<std::latch>(2);  // of both searches
    offer.findLackingCharacter = [=]() -> std::optional<pipeline::LackingCharacter> {
        mayEnd->wait();
        hasEnded->count_down();
        return std::nullopt;
    };
    EXPECT_EQ(save([] { press(Qt::Key_Escape); }), std::nullopt);
    auto parent = std::make_unique<QWidget>();
    EXPECT_EQ(run([&] { return runSavePanel(parent.get(), offer); }, [&] { parent.reset(); }),
              std::nullopt);
    parent = std::make_unique<QWidget>();
    EXPECT_THAT(run([&] { return runSourcePanel(parent.get()); }, [&] { parent.reset(); }),
                IsEmpty());
    mayEnd->count_down();
    hasEnded->wait();
}

TEST_F(PanelsTest, AlertsSayPlainlyWhatTheyAreTold) {
    showAlertPanel(&window, {"<b>Message</b>", "<i>More</i>", "Understood"});
    const QPointer<QMessageBox> alert = window.findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->windowModality(), Qt::WindowModal);
    for (const auto* label : alert->findChildren<QLabel*>()) {
        EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
    }
    EXPECT_EQ(alert->text(), QStringLiteral("<b>Message</b>"));
    EXPECT_EQ(alert->informativeText(), QStringLiteral("<i>More</i>"));
    EXPECT_EQ(alert->buttons().size(), 1);
    EXPECT_EQ(alert->buttons().front()->text(), QStringLiteral("Understood"));
    QTest::keyClick(alert, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return alert == nullptr; }));
}

}  // namespace
}  // namespace marquell::window
