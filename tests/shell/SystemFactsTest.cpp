// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLocale>
#include <QLoggingCategory>
#include <memory>
#include <string>
#include <vector>

#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "shell/LocalizationManager.h"
#include "shell/LoggedLines.h"
#include "shell/MacOSVersion.h"
#include "shell/Regions.h"

namespace marquell::shell {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(MacOSVersion, KnowsVersionsByTheirNumbers) {
    EXPECT_EQ(static_cast<int>(MacOSVersionType::asYetUnknownLaterVersion), 19);
    for (int minor = 9; minor <= 15; ++minor) {
        EXPECT_EQ(static_cast<int>(versionType(10, minor)), minor);
    }
    for (const int minor : {16, 8, -1}) {
        EXPECT_EQ(versionType(10, minor), MacOSVersionType::catalina);
    }
    EXPECT_EQ(versionType(11, 7), MacOSVersionType::bigSur);
    EXPECT_EQ(versionType(12, 0), MacOSVersionType::monterey);
    EXPECT_EQ(versionType(13, 1), MacOSVersionType::ventura);
    for (const int major : {14, 9, 0, -1}) {
        EXPECT_EQ(versionType(major, 9), MacOSVersionType::asYetUnknownLaterVersion);
    }
    EXPECT_EQ(MacOSVersion().currentVersion, MacOSVersionType::asYetUnknownLaterVersion);
}

TEST(MacOSVersion, KnowsEachCountryAndNoOther) {
    int countries = 0;
    for (char a = 'A'; a <= 'Z'; ++a) {
        for (char b = 'A'; b <= 'Z'; ++b) {
            const std::string code = {a, b};
            bool named = false;
            for (const Region region :
                 {Region::germanSpeakingWorld, Region::uk, Region::us, Region::canada,
                  Region::oceania, Region::northAmerica, Region::europeanUnion}) {
                named = named || isInRegion(region, code);
            }
            const bool other = isInRegion(Region::allOtherCountries, code);
            EXPECT_FALSE(named && other) << code;
            countries += named || other ? 1 : 0;
        }
    }
    EXPECT_EQ(countries, 249);  // as many as ISO 3166 has
    for (const char* none : {"", "E", "DE ", "E ", " A", "de"}) {
        EXPECT_FALSE(isInRegion(Region::germanSpeakingWorld, none)) << none;
    }
}

TEST(MacOSVersion, PlacesTheUserByTheLocale) {
    const MacOSVersion swiss(QLocale(QLocale::French, QLocale::Switzerland));
    EXPECT_TRUE(swiss.inGermanSpeakingWorld() && swiss.inEurope());
    EXPECT_FALSE(swiss.inEuropeanUnion() || swiss.inUK() || swiss.inAllOtherCountries());
    const MacOSVersion canadian(QLocale(QLocale::French, QLocale::Canada));
    EXPECT_TRUE(canadian.inCanada() && canadian.inNorthAmerica());
    EXPECT_FALSE(canadian.inUS() || canadian.inEurope() || canadian.inOceania());
    EXPECT_TRUE(MacOSVersion(QLocale(QLocale::Polish)).inAllOtherCountries());
    const MacOSVersion nowhere(QLocale::c());
    EXPECT_FALSE(nowhere.inGermanSpeakingWorld() || nowhere.inUK() || nowhere.inUS() ||
                 nowhere.inEurope() || nowhere.inAllOtherCountries());
}

TEST(MacOSVersion, AppliesAModeHalfASecondAfterTheChangeAndTellsWhoIsLeft) {
    platform::PumpedMainQueue queue;
    platform::MainQueue::install(&queue);
    MacOSVersion version;
    std::vector<std::string> calls;
    const auto listener = [&](const std::string& name) {
        const auto result = std::make_shared<WeakDarkModeListenerFuncReference>();
        result->reference = [&calls, name](bool dark) {
            calls.push_back(name + (dark ? "+" : "-"));
        };
        version.addDarkModeChangeListener(result);
        return result;
    };
    version.applyLook = [&](bool dark) {
        calls.emplace_back(dark && version.isDarkMode() ? "look+" : "look-");
    };
    const auto first = listener("first");
    auto gone = listener("gone");
    const auto emptied = listener("emptied");
    auto dropped = listener("dropped");
    const auto last = listener("last");
    std::vector<std::shared_ptr<WeakDarkModeListenerFuncReference>> late;
    gone.reset();
    emptied->reference = nullptr;
    first->reference = [&, before = first->reference](bool dark) {
        before(dark);
        dropped.reset();
        while (late.size() < 20) late.push_back(listener("late"));
    };

    version.internalDarkModeHasChanged(true);
    queue.advance(0.49s);
    EXPECT_FALSE(version.isDarkMode());
    EXPECT_TRUE(calls.empty());
    queue.advance(0.02s);
    EXPECT_TRUE(version.isDarkMode());
    EXPECT_THAT(calls, ElementsAre("look+", "first+", "last+"));

    EXPECT_EQ(late.size(), 20U);

    first->reference = nullptr;
    late.resize(1);
    calls.clear();  // what counts is the mode when the time has passed
    version.internalDarkModeHasChanged(false);
    queue.advance(0.3s);
    version.internalDarkModeHasChanged(true);
    queue.advance(0.3s);
    EXPECT_THAT(calls, ElementsAre("look+", "last+", "late+"));
    queue.advance(0.3s);
    EXPECT_EQ(calls.size(), 6U);

    std::make_unique<MacOSVersion>()->internalDarkModeHasChanged(true);
    queue.advance(1s);  // for an object that is gone
    platform::MainQueue::install(nullptr);
}

TEST(MacOSVersion, LogsTheWayToTheFolderOfTheSettings) {
    const tests::Environment environment({{"XDG_CONFIG_HOME", "/some where"}});
    const tests::LoggedLines logged;
    QLoggingCategory::setFilterRules(QStringLiteral("marquell.system.debug=true"));
    EXPECT_EQ(MacOSVersion::fullPathToPreferencesFolder(), QStringLiteral("/some where/marquell/"));
    QLoggingCategory::setFilterRules({});
    EXPECT_EQ(MacOSVersion::fullPathToPreferencesFolder().size(), 21);  // says nothing
    EXPECT_THAT(tests::LoggedLines::lines(),
                ElementsAre("library folder path: /some where",
                            "library folder path after processing: /some where",
                            "preferences folder: /some where/marquell/"));
}

TEST(LocalizationManager, TellsGermanByTheLanguageAlone) {
    for (const char* german : {"de", "de_AT.UTF-8", "de.UTF-8", "de@euro"}) {
        EXPECT_TRUE(LocalizationManager(german).useGerman()) << german;
    }
    for (const char* other : {"", "C", "den_CA", "en_DE.UTF-8", "d", "fr_CH"}) {
        EXPECT_FALSE(LocalizationManager(other).useGerman()) << other;
    }
    EXPECT_TRUE(LocalizationManager("en_DE.UTF-8").english);
    EXPECT_FALSE(LocalizationManager("C").english);
}

}  // namespace
}  // namespace marquell::shell
