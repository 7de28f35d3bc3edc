#include "app/idle_watch.h"

#include "support/fake_clock.h"
#include "support/manual_timer.h"

#include <gtest/gtest.h>

namespace hourwright::app {

namespace {

using namespace std::chrono_literals;

class IdleWatchTest : public testing::Test {
protected:
    IdleWatchTest() {
        timers.add({}, {});
        timers.add({}, {});
        timers.slot(0).setDuration(5000);
        timers.slot(1).setDuration(60);
    }

    test::FakeClock clock;
    test::ManualTimer ticks;
    billing::TimerSet timers{clock, ticks};
    IdleWatch watch{timers};
};

TEST_F(IdleWatchTest, AsksForRunningTimersAndNotForMoreThanTheyHave) {
    const std::vector<DoubtfulTime> both{{TimerDoubt::gap, 0, 3600}, {TimerDoubt::gap, 1, 60}};
    EXPECT_EQ(watch.gap(3600), both);
    timers.togglePause(0);
    EXPECT_EQ(watch.gap(3600), std::vector{both[1]});
}

TEST_F(IdleWatchTest, AsksOnceWhenTheUserIsBack) {
    timers.reset(1);
    EXPECT_TRUE(watch.idle({}).empty()) << "the session does not tell";
    EXPECT_TRUE(watch.idle(300s).empty());
    EXPECT_TRUE(watch.idle(0s).empty()) << "a short pause";
    EXPECT_TRUE(watch.idle(600s).empty());
    EXPECT_TRUE(watch.idle(900s).empty()) << "still away";
    EXPECT_EQ(watch.idle(2s), (std::vector<DoubtfulTime>{{TimerDoubt::idle, 0, 900}}));
    EXPECT_TRUE(watch.idle(4s).empty());
}

TEST_F(IdleWatchTest, AsksOnceForATimerThatRunsLongerThanADay) {
    timers.slot(0).setDuration(86'400);
    EXPECT_TRUE(watch.longRunning(100).empty());
    timers.slot(0).setDuration(86'401);
    EXPECT_EQ(watch.longRunning(100), (std::vector<DoubtfulTime>{{TimerDoubt::day, 0, 100}}));
    EXPECT_TRUE(watch.longRunning(115).empty());
    timers.reset(0);
    EXPECT_TRUE(watch.longRunning(0).empty());
    timers.add({}, {});
    timers.slot(0).setDuration(90'000);
    EXPECT_EQ(watch.longRunning(0).size(), 1U) << "another timer in the same slot";
}

} // namespace

} // namespace hourwright::app
