// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/LaunchManager.h"
#include "shell/TestTime.h"
#include "support/TestDefaultsStorage.h"

namespace marquell::shell {
namespace {

using testing::ElementsAre;

class LaunchManagerTest : public testing::Test {
protected:
    /// What runs at a launch so many days after some date, in a program that was just started.
    std::vector<std::string> launch(double day) {
        constexpr double someDate = 700'000'000;
        dates_.testCurrentTimeIntervalFromReferenceDate = someDate + day * 86'400;
        std::vector<std::string> ran;
        const auto item = [&](const char* name, LaunchTrigger trigger) {
            return LaunchListItem{std::move(trigger), [&ran, name] { ran.emplace_back(name); }};
        };
        LaunchManager manager("tips",
                              {item("until", UntilDefaultsKeyIsSet{"seen"}),
                               item("third", AfterLaunches{3}), item("week", AfterDays{7}),
                               item("first", FirstLaunch{}), item("at once", AfterDays{0}),
                               item("always", EveryTime{}), item("never", AfterLaunches{0})},
                              storage_, dates_);
        manager.applicationDidLaunch();
        return ran;
    }

    tests::TestDefaultsStorage storage_;
    tests::TestDateProvider dates_;
};

TEST_F(LaunchManagerTest, RunsWhatIsDueInTheOrderOfTheList) {
    EXPECT_THAT(launch(0), ElementsAre("until", "first", "at once", "always"));
    EXPECT_THAT(launch(0), ElementsAre("until", "always"));
    storage_.store(false, "seen");  // set, though to nothing true
    EXPECT_THAT(launch(6.9), ElementsAre("third", "always"));
    EXPECT_THAT(launch(9), ElementsAre("week", "always"));
    EXPECT_THAT(launch(10), ElementsAre("always"));
    EXPECT_THAT(launch(2), ElementsAre("always"));  // the system's clock was set back,
    EXPECT_THAT(launch(8), ElementsAre("always"));  // and the week is over once more
    for (const auto& [key, value] : storage_.defaultsDictionary) {
        EXPECT_TRUE(key == "seen" || key.starts_with("tips.")) << key;
    }
}

TEST_F(LaunchManagerTest, HasCountedBeforeATaskRunsAndJudgesEachAtItsTurn) {
    int runs = 0;
    const std::vector<LaunchListItem> list = {{EveryTime{}, [&] { storage_.store(true, "seen"); }},
                                              {UntilDefaultsKeyIsSet{"seen"}, [&] { runs += 100; }},
                                              {FirstLaunch{}, [&] {
                                                   ++runs;
                                                   throw runs;
                                               }}};
    for (int i = 0; i < 2; ++i) {
        LaunchManager manager("tips", list, storage_, dates_);
        try {
            manager.applicationDidLaunch();
        } catch (int) {
        }
    }
    EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace marquell::shell
