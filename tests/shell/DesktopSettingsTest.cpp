// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPalette>
#include <optional>
#include <string>
#include <vector>

#include "platform/MainQueue.h"
#include "shell/DesktopAppearance.h"
#include "shell/DesktopFonts.h"
#include "shell/EventLoop.h"
#include "shell/FontDescription.h"
#include "shell/MacOSVersion.h"
#include "shell/MockPortal.h"

namespace marquell::shell {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

const QString appearanceSpace = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");
const QString fontSpace = QStringLiteral("org.gnome.desktop.interface");

QPalette palette(bool dark) {
    return QPalette(dark ? Qt::darkGray : Qt::lightGray, dark ? Qt::black : Qt::white);
}

class DesktopSettingsTest : public testing::Test {
protected:
    DesktopSettingsTest() {
        QApplication::setPalette(palette(false));
        platform::MainQueue::install(&queue_);
        version_.applyLook = [this](bool dark) {
            QApplication::setPalette(palette(dark));
            calls_.emplace_back(dark ? "look+" : "look-");
        };
        listener_->reference = [this](bool dark) {
            calls_.emplace_back(dark ? "listener+" : "listener-");
        };
        version_.addDarkModeChangeListener(listener_);
    }
    ~DesktopSettingsTest() override {
        platform::MainQueue::install(nullptr);
        QApplication::setPalette(QPalette());
    }

    void answerScheme(const QVariant& value) {
        portal_.answers[{appearanceSpace, schemeKey}] = {value};
    }
    void changeScheme(unsigned int scheme) {
        portal_.sendChange({appearanceSpace, schemeKey, tests::inVariants(scheme, 1)});
    }
    /// Lets news arrive, and the half second pass.
    bool becomes(bool dark) {
        return tests::waitUntil([&] {
            queue_.advance(0.5s);
            return version_.isDarkMode() == dark;
        });
    }

    tests::PrivateBus bus_;
    tests::MockPortal portal_{bus_.service()};
    platform::PumpedMainQueue queue_;
    MacOSVersion version_;
    std::shared_ptr<WeakDarkModeListenerFuncReference> listener_ =
        std::make_shared<WeakDarkModeListenerFuncReference>();
    std::vector<std::string> calls_;
};

TEST_F(DesktopSettingsTest, TheModeIsThatOfThePortalAndFollowsIt) {
    ASSERT_TRUE(bus_.client().isConnected() && bus_.service().isConnected());
    answerScheme(tests::inVariants(1U, 2));
    DesktopAppearance appearance(version_, bus_.client());
    EXPECT_FALSE(version_.isDarkMode());  // until the answer is there, the palette's
    appearance.waitForAnswer(20s);
    EXPECT_TRUE(version_.isDarkMode());
    EXPECT_TRUE(calls_.empty());
    QApplication::setPalette(palette(true));

    changeScheme(2);
    ASSERT_TRUE(becomes(false));
    EXPECT_THAT(calls_, ElementsAre("look-", "listener-"));
    changeScheme(1);
    ASSERT_TRUE(becomes(true));
    portal_.sendChange({appearanceSpace, QStringLiteral("contrast"), tests::inVariants(2U, 1)});
    portal_.sendChange({appearanceSpace, schemeKey, QStringLiteral("no variant")});
    portal_.sendChange({appearanceSpace, schemeKey, tests::inVariants(QStringLiteral("2"), 1)});
    changeScheme(0);  // no opinion: the palette from before the program's own
    ASSERT_TRUE(becomes(false));
    EXPECT_THAT(calls_,
                ElementsAre("look-", "listener-", "look+", "listener+", "look-", "listener-"));
    changeScheme(2);  // the same by another way
    tests::runFor(100ms);
    queue_.advance(10s);
    EXPECT_EQ(calls_.size(), 6U);
}

TEST_F(DesktopSettingsTest, WithoutASensibleAnswerThePaletteDecidesAndLaterNewsArrive) {
    const QVariantList nonsense = {tests::inVariants(QStringLiteral("1"), 2), 1, QStringList(),
                                   tests::inVariants(-1, 2), tests::inVariants(7U, 2)};
    for (qsizetype i = 0; i <= nonsense.size(); ++i) {
        portal_.answers.clear();  // an error, after the last of them
        if (i < nonsense.size()) answerScheme(nonsense[i]);
        version_.setDarkMode(true);
        DesktopAppearance appearance(version_, bus_.client());
        appearance.waitForAnswer(20s);
        EXPECT_FALSE(version_.isDarkMode()) << i;
        changeScheme(1);
        EXPECT_TRUE(becomes(true)) << i;
        QApplication::setPalette(palette(false));
    }
    answerScheme(tests::inVariants(1U, 20));
    DesktopAppearance appearance(version_, bus_.client());
    appearance.waitForAnswer(20s);
    EXPECT_TRUE(version_.isDarkMode());
}

TEST_F(DesktopSettingsTest, ASlowPortalHoldsNobodyUp) {
    portal_.silent = true;
    QElapsedTimer clock;
    clock.start();
    DesktopAppearance appearance(version_, bus_.client());
    appearance.waitForAnswer(50ms);
    EXPECT_GE(clock.elapsed(), 49);
    EXPECT_LT(clock.elapsed(), 400);
}

TEST_F(DesktopSettingsTest, WithoutAPortalThePaletteDecidesAndIsFollowed) {
    for (const bool bus : {true, false}) {
        QApplication::setPalette(palette(true));
        const tests::PrivateBus empty;
        DesktopAppearance appearance(
            version_, bus ? empty.client() : QDBusConnection(QStringLiteral("no such bus")));
        EXPECT_TRUE(version_.isDarkMode());
        QElapsedTimer clock;
        clock.start();
        appearance.waitForAnswer(20s);
        EXPECT_LT(clock.elapsed(), 5000);
        QApplication::setPalette(palette(false));
        EXPECT_TRUE(version_.isDarkMode());  // as long as that can still be seen
        queue_.advance(10s);
        EXPECT_FALSE(version_.isDarkMode());
        EXPECT_THAT(calls_, ElementsAre("look-", "listener-"));
        calls_.clear();
    }
}

TEST_F(DesktopSettingsTest, FontsAreThoseOfTheDesktop) {
    const auto setting = [](const char* key, const QVariant& value) {
        return QVariantList{fontSpace, QLatin1String(key), tests::inVariants(value, 1)};
    };
    portal_.answers[{fontSpace, QStringLiteral("font-name")}] = {
        tests::inVariants(QStringLiteral("Cantarell 11"), 2)};
    int changes = 0;
    const DesktopFonts fonts(bus_.client(), [&] { ++changes; });
    ASSERT_TRUE(tests::waitUntil([&] { return changes == 1; }));
    EXPECT_EQ(fonts.interfaceFont().value().family(), QStringLiteral("Cantarell"));
    EXPECT_EQ(fonts.interfaceFont()->pointSizeF(), 11);
    EXPECT_EQ(fonts.monospaceFont(), std::nullopt);

    portal_.sendChange(setting("font-name", 12));
    portal_.sendChange(setting("font-name", QStringLiteral("Cantarell")));
    portal_.sendChange(setting("text-scaling-factor", 0.0));
    portal_.sendChange(setting("text-scaling-factor", QStringLiteral("2")));
    portal_.sendChange(setting("text-scaling-factor", 1.25));
    portal_.sendChange(setting("monospace-font-name", QStringLiteral("Noto Sans Mono 10")));
    ASSERT_TRUE(tests::waitUntil([&] { return fonts.monospaceFont().has_value(); }));
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(fonts.interfaceFont()->pointSizeF(), 13.75);
    EXPECT_EQ(fonts.monospaceFont()->pointSizeF(), 12.5);
    EXPECT_EQ(fonts.monospaceFont()->styleHint(), QFont::Monospace);
}

TEST(FontDescription, HasFamiliesThenWordsThenTheSize) {
    const auto read = [](const char* text) {
        const auto font = fontFromDescription(QLatin1String(text));
        if (!font) return std::string("nothing");
        return font->families().join(QLatin1Char('|')).toStdString() + "/" +
               std::to_string(font->weight()) + "/" + std::to_string(font->style()) + "/" +
               std::to_string(font->stretch()) + "/" +
               QString::number(font->pointSizeF()).toStdString();
    };
    EXPECT_EQ(read("Cantarell 11"), "Cantarell/400/0/0/11");
    EXPECT_EQ(read("Noto Sans Mono Medium 10.5"), "Noto Sans Mono/500/0/0/10.5");
    EXPECT_EQ(read(" DejaVu  Sans Semi-Condensed bold Italic 9 "), "DejaVu Sans/700/1/87/9");
    EXPECT_EQ(read("Bold Type Regular 12"), "Bold Type/400/0/0/12");
    EXPECT_EQ(read("Arial Black, 11"), "Arial Black/400/0/0/11");
    EXPECT_EQ(read("Inter, Noto Sans,Light 11 @wght=300 #tnum=1"), "Inter|Noto Sans/300/0/0/11");
    for (const char* unreadable :
         {"", " ", "Cantarell", "11", "Bold 11", "Cantarell 0", "Cantarell -3", "Cantarell 1e9",
          "Cantarell nan", "Cantarell inf", "Cantarell 14px", "@wght=300", ", 12"}) {
        EXPECT_EQ(read(unreadable), "nothing") << unreadable;
    }
}

}  // namespace
}  // namespace marquell::shell
