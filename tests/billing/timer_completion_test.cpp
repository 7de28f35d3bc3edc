#include "billing/timer_completion.h"

#include "support/fake_clock.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

std::vector<std::byte> encode(std::u16string_view text) {
    return std::vector<std::byte>(text.size(), std::byte{'n'});
}

EntryTimer timerOf(std::int32_t duration, std::int32_t breakTime) {
    const test::FakeClock clock; // 16 November 2026, 09:00
    EntryTimer timer;
    timer.startNow(clock);
    timer.setDuration(duration);
    timer.setBreak(breakTime);
    timer.setNames({u"Acme", u"Site", u"Build", u"Review"});
    return timer;
}

TEST(TimerCompletion, StoresDurationAndBreakByTheRulesOfHours) {
    struct Row {
        std::int32_t duration, breakTime;
        BreakOption option;
        TimeRules rules;
        std::int32_t storedDuration, storedBreak;
    };
    const TimeRules quarters{.granularityOn = true, .granularityMinutes = 15};
    const Row rows[] = {
        {3000, 600, breakManually, {}, 83, 16},
        {3000, 600, breakFromTimer, {}, 83, 16},
        {3000, 600, breakManually, quarters, 100, 16},
        {3000, 600, 2, {}, 83, 0},
        {1, 1, breakManually, {}, 0, 0},
        {1, 0, breakManually, quarters, 25, 0},
        {360'000, 0, breakManually, {}, 10'000, 0},
        {2'147'483'647, 0, breakManually, {}, 65'535, 0},
    };
    for (const Row& row : rows) {
        const TimerCompletion completion{.rules = row.rules, .breakOption = row.option, .encodeNote = encode};
        const store::TimeEntry entry = completedEntry(timerOf(row.duration, row.breakTime), completion);
        EXPECT_EQ(entry.duration, row.storedDuration) << row.duration;
        EXPECT_EQ(entry.breakTime, row.storedBreak) << row.breakTime << " option " << row.option;
    }
}

TEST(TimerCompletion, TakesStartNamesNoteAndDefaults) {
    EntryTimer timer = timerOf(3600, 0);
    timer.setNote(u"abc");
    const store::TimeEntry entry =
        completedEntry(timer, {.defaults = {.billable = true, .currency = u"EUR"}, .encodeNote = encode});
    EXPECT_TRUE(store::hasStart(entry));
    EXPECT_EQ(platform::toSystemTime(entry.date)->hour, 9);
    EXPECT_EQ(entry.client, u"Acme");
    EXPECT_EQ(entry.project, u"Site");
    EXPECT_EQ(entry.phase, u"Build");
    EXPECT_EQ(entry.task, u"Review");
    EXPECT_EQ(entry.note.size(), 3U);
    EXPECT_EQ(entry.status, store::EntryStatus::billable);
    EXPECT_EQ(entry.currency, u"EUR");
}

TEST(TimerCompletion, SeedsTheEntryFromItsSourceAsANewRecord) {
    store::TimeEntry source;
    source.id = static_cast<store::RecordId>(7);
    source.flags = 3;
    source.client = u"Old";
    source.breakTime = 55;
    source.rate = 4550;
    source.custom2 = u"kept";
    source.note = {std::byte{'x'}};
    EntryTimer timer = timerOf(3600, 0);
    timer.setSource(source);
    const store::TimeEntry entry = completedEntry(timer, {.breakOption = 9, .encodeNote = encode});
    EXPECT_EQ(entry.id, store::RecordId::none);
    EXPECT_EQ(entry.flags, 0);
    EXPECT_EQ(entry.breakTime, 0);
    EXPECT_EQ(entry.rate, 4550);
    EXPECT_EQ(entry.custom2, u"kept");
    EXPECT_EQ(entry.client, u"Acme");
    EXPECT_TRUE(entry.note.empty()) << "the note is the timer's";
}

TEST(TimerCompletion, AnnouncesANoteOfMoreThan65000Characters) {
    EntryTimer timer;
    timer.setNote(std::u16string(65'000, u'x'));
    EXPECT_FALSE(noteIsTooLarge(timer));
    timer.setNote(std::u16string(65'001, u'x'));
    EXPECT_TRUE(noteIsTooLarge(timer));
    timer.setNote(std::u16string(64'999, u'x') + u"\r\n");
    EXPECT_FALSE(noteIsTooLarge(timer)) << "a line break is one character";
}

TEST(TimerCompletion, SplitsATimerAtAGap) {
    test::FakeClock clock;
    EntryTimer timer = timerOf(10'000, 30);
    timer.setNote(u"n");
    clock.advance(10'000);
    const EntryTimer before = splitAtGap(timer, 4'000, clock);
    EXPECT_EQ(before.duration(), 6'000);
    EXPECT_EQ(before.breakTime(), 30);
    EXPECT_EQ(timer.duration(), 0);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(timer.start(), clock.localTime());
    EXPECT_EQ(timer.names(), before.names());
    EXPECT_EQ(timer.note(), u"n");
}

} // namespace

} // namespace hourwright::billing
