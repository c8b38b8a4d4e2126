// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QMenu>
#include <QTimer>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>

#include "shell/Clock.h"
#include "shell/EventLoop.h"
#include "shell/SmartTimerWrapper.h"
#include "shell/TestTime.h"
#include "shell/TimerInterval.h"

namespace marquell::shell {
namespace {

using namespace std::chrono_literals;

TEST(Clock, RunsAtAnotherPaceFromItsStartOn) {
    tests::TestClock system;
    system.currentTimeIntervalSinceReferenceDate = 1000;
    const ClockPace pace = {system.currentTimeIntervalSinceReferenceDate, 5000, 4};
    EXPECT_EQ(pace.simulatedTime(system.currentTimeIntervalSinceReferenceDate), 5000);
    system.currentTimeIntervalSinceReferenceDate += 10;
    EXPECT_EQ(pace.simulatedTime(system.currentTimeIntervalSinceReferenceDate), 5040);
    EXPECT_EQ(pace.realDuration(2s), 0.5s);
}

TEST(Clock, IsTheSystemTime) {
    const auto system = [] {
        return std::chrono::duration<double>(std::chrono::sys_seconds(std::chrono::sys_days(
                                                 std::chrono::year(2001) / 1 / 1)) -
                                             std::chrono::system_clock::now())
                   .count() *
               -1;
    };
    const double before = system();
    const double now = Clock::now();
    const double asDate = platform::timeIntervalSinceReferenceDate(Clock::nowAsDate());
    constexpr double rounding = 1e-5;
    EXPECT_GE(now, before - rounding);
    EXPECT_GE(asDate, now - rounding);
    EXPECT_LE(asDate, system() + rounding);
    EXPECT_EQ(Clock::translateDurationForSystemClock(3s), 3s);
}

TEST(SmartTimerWrapper, LivesUntilItsOwnerOrItsBlockEndsIt) {
    int owned = 0;
    int ended = 0;
    int once = 0;
    int forgotten = 0;
    std::unique_ptr<SmartTimerWrapper> ending;
    const auto single = Clock::timerWithSimulatedTimeInterval(1ms, false, [&](QTimer&) { ++once; });
    SmartTimerWrapper::wrapTimer(1ms, true, [&](QTimer&) { ++forgotten; });  // has no owner
    auto owner = Clock::timerWithSystemTimeInterval(1ms, true, [&](QTimer&) { ++owned; });
    const auto captured = std::make_shared<int>();
    ending = SmartTimerWrapper::wrapTimer(1ms, true, [&ending, &ended, captured](QTimer&) {
        if (++ended == 3) ending.reset();
        EXPECT_GE(captured.use_count(), 2);  // the running block is still there
    });
    ASSERT_TRUE(tests::waitUntil([&] { return owned >= 10 && ended >= 3; }));
    owner->invalidate();
    owner->invalidate();
    EXPECT_EQ(owner->timer(), nullptr);
    const int last = owned;
    tests::runFor(30ms);
    EXPECT_EQ(owned, last);
    EXPECT_EQ(ended, 3);
    EXPECT_EQ(once, 1);
    EXPECT_EQ(forgotten, 0);
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(SmartTimerWrapper, FiresWhileAMenuIsOpen) {
    QMenu menu;
    menu.addAction(QStringLiteral("Entry"));
    int count = 0;
    const auto timer = SmartTimerWrapper::wrapTimer(1ms, true, [&](QTimer&) {
        if (++count == 5) menu.close();
    });
    menu.exec(QPoint(10, 10));
    EXPECT_GE(count, 5);
}

TEST(TimerInterval, IsWhatQtCanCount) {
    EXPECT_EQ(timerInterval(0.1s), 100ms);
    EXPECT_EQ(timerInterval(0.07s), 70ms);
    for (const double nothing : {0.0, -3.0, 1e-9, std::nan("")}) {
        EXPECT_EQ(timerInterval(std::chrono::duration<double>(nothing)), 1ms) << nothing;
    }
    EXPECT_EQ(timerInterval(std::chrono::duration<double>(1e30)).count(),
              std::numeric_limits<int>::max());
}

}  // namespace
}  // namespace marquell::shell
