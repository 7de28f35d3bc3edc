#include "billing/timer_set.h"

#include "support/fake_clock.h"
#include "support/manual_timer.h"

#include <gtest/gtest.h>
#include <vector>

namespace hourwright::billing {

namespace {

using namespace std::chrono_literals;

class TimerSetTest : public testing::Test {
protected:
    // Seconds pass, with a tick after each.
    void run(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            clock.advance(1);
            timer.fire();
        }
    }

    test::FakeClock clock;
    test::ManualTimer timer;
    TimerSet set{clock, timer};
};

TEST_F(TimerSetTest, TicksEverySecondAsLongAsItLives) {
    EXPECT_EQ(timer.period, 1000ms);
    {
        test::ManualTimer other;
        const auto temporary = std::make_unique<TimerSet>(clock, other);
        EXPECT_TRUE(other.isRunning());
    }
    EXPECT_TRUE(timer.isRunning());
}

TEST_F(TimerSetTest, CreditsAStartInThePastAtOnce) {
    auto start = clock.localTime();
    platform::addMinutes(start, -90);
    set.add({}, start);
    EXPECT_EQ(clockText(set.slot(0).duration()), u"01:30:00");
    timer.fire();
    EXPECT_EQ(clockText(set.slot(0).duration()), u"01:30:01") << "the first tick has nothing before it, yet counts";
}

TEST_F(TimerSetTest, CountsNothingForAStartInTheFuture) {
    auto start = clock.localTime();
    platform::addMinutes(start, 30);
    set.add({}, start);
    EXPECT_EQ(set.slot(0).duration(), 0);
}

TEST_F(TimerSetTest, CountsTheTimeBetweenTicks) {
    struct Row {
        const char* name;
        std::function<void(test::FakeClock&)> pass;
        std::int32_t counted;
    };
    const Row rows[] = {
        {"one second", [](auto& c) { c.advance(1); }, 1},
        {"nothing: two ticks in one second", [](auto&) {}, 1},
        {"a late tick", [](auto& c) { c.advance(7); }, 7},
        {"a night asleep", [](auto& c) { c.advance(8 * 3600); }, 8 * 3600},
        {"the clock set back an hour", [](auto& c) { c.advance(-3600); }, 1},
        {"daylight saving begins", [](auto& c) { c.advance(1), c.changeZone(3600s); }, 1},
        {"daylight saving ends", [](auto& c) { c.setOffset(3600s), c.advance(1), c.changeZone(0s); }, 1},
        {"nine zones to the east", [](auto& c) { c.advance(1), c.changeZone(9 * 3600s); }, 1},
    };
    for (const Row& row : rows) {
        test::FakeClock local;
        test::ManualTimer ticks;
        if (std::string_view(row.name) == "daylight saving ends")
            local.setOffset(3600s);
        TimerSet fresh(local, ticks);
        fresh.add({}, {});
        ticks.fire();
        const auto before = fresh.slot(0).duration();
        row.pass(local);
        ticks.fire();
        EXPECT_EQ(fresh.slot(0).duration() - before, row.counted) << row.name;
    }
}

TEST_F(TimerSetTest, CountsPausedTimeAsBreakWhateverTheOptionSays) {
    for (const BreakOption option : {breakManually, breakFromTimer, 7U}) {
        set.breakOption = [option] { return option; };
        set.add({}, {});
        timer.fire();
        set.slot(0).setDuration(0);
        run(50);
        set.togglePause(0);
        run(10);
        set.togglePause(0);
        run(5);
        EXPECT_EQ(set.slot(0).duration(), 55) << option;
        EXPECT_EQ(set.slot(0).breakTime(), 10) << option;
        set.reset(0);
    }
}

TEST_F(TimerSetTest, RedrawsRunningTimersAndPausedOnesWhenTheirBreakIsShown) {
    std::vector<std::size_t> drawn;
    set.redraw = [&](std::size_t index) { drawn.push_back(index); };
    set.add({}, {});
    set.add({}, {});
    set.togglePause(1);
    run(1);
    EXPECT_EQ(drawn, (std::vector<std::size_t>{0}));
    drawn.clear();
    set.breakOption = [] { return breakFromTimer; };
    run(1);
    EXPECT_EQ(drawn, (std::vector<std::size_t>{0, 1}));
}

TEST_F(TimerSetTest, HasFourSlotsAndTakesTheFirstFreeOne) {
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(set.add({.client = u"Acme"}, {}), i);
    EXPECT_EQ(set.add({}, {}), std::nullopt);
    EXPECT_EQ(set.inUse(), 4U);
    set.reset(2);
    EXPECT_EQ(set.slot(2), EntryTimer{});
    EXPECT_EQ(set.add({}, {}), 2U);
}

TEST_F(TimerSetTest, RunsFourTimersForAnHourSideBySide) {
    for (int i = 0; i < 4; ++i)
        set.add({}, {});
    set.togglePause(3);
    run(3600);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(set.slot(i).duration(), 3600, 1);
    EXPECT_NEAR(set.slot(3).breakTime(), 3600, 1);
}

TEST_F(TimerSetTest, ReportsALongGapOnlyWhileATimerIsInUse) {
    std::vector<std::int64_t> gaps;
    set.gapFound = [&](const TimerGap& gap) { gaps.push_back(gap.seconds); };
    timer.fire();
    clock.advance(9000);
    timer.fire();
    EXPECT_TRUE(gaps.empty());
    set.add({}, {});
    const auto lastTick = clock.now();
    TimerGap found;
    set.gapFound = [&](const TimerGap& gap) { found = gap; };
    clock.advance(119);
    timer.fire();
    EXPECT_EQ(found.seconds, 0);
    clock.advance(120);
    timer.fire();
    EXPECT_EQ(found.seconds, 120);
    EXPECT_EQ(found.lastTick.ticks, lastTick.ticks + 119 * platform::ticksPerSecond);
}

TEST(EntryTimer, StopsAtTheMostThatItHolds) {
    EntryTimer timer;
    timer.resume();
    timer.setDuration(2'147'483'640);
    timer.addElapsed(9'000'000'000'000);
    EXPECT_EQ(timer.duration(), 2'147'483'647);
}

TEST(EntryTimer, ShowsSecondsAsAClock) {
    EXPECT_EQ(clockText(0), u"00:00:00");
    EXPECT_EQ(clockText(59), u"00:00:59");
    EXPECT_EQ(clockText(360'000), u"100:00:00");
    EXPECT_EQ(clockText(5'025), u"01:23:45");
}

TEST(EntryTimer, ReadsTheThreeFieldsOfAClock) {
    struct Row {
        std::u16string_view hours, minutes, seconds;
        std::optional<std::int32_t> total;
    };
    const Row rows[] = {
        {u"1", u"30", u"5", 5405},  {u"", u"x", u" 7", 7},   {u"0", u"90", u"90", 5490},  {u"1.9", u"0", u"0", 3600},
        {u"1", u"-10", u"0", 3000}, {u"0", u"-1", u"0", {}}, {u"600000", u"0", u"0", {}}, {u"1e5", u"0", u"0", 3600},
    };
    for (const Row& row : rows)
        EXPECT_EQ(secondsOf(row.hours, row.minutes, row.seconds), row.total)
            << std::string(row.hours.begin(), row.hours.end());
}

} // namespace

} // namespace hourwright::billing
