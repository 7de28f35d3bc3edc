#include "app/timer_recovery.h"

#include "support/fake_clock.h"
#include "support/manual_timer.h"
#include "support/memory_registry.h"

#include <gtest/gtest.h>

namespace hourwright::app {

namespace {

class TimerJournalTest : public testing::Test {
protected:
    test::FakeClock clock;
    test::ManualTimer ticks;
    billing::TimerSet timers{clock, ticks};
    test::MemoryRegistry registry;
    TimerJournal journal{registry};
};

TEST_F(TimerJournalTest, GivesTimersBackAsTheyWere) {
    store::TimeEntry source;
    source.id = static_cast<store::RecordId>(41);
    timers.add({u"Acme", u"Site", u"Build", u"Review"}, {}, source);
    timers.add({.client = u"Ōsaka 大阪"}, {});
    timers.add({}, {});
    timers.reset(0);
    timers.add({u"Acme", u"Site", u"Build", u"Review"}, {}, source);
    timers.togglePause(1);
    timers.slot(0).setDuration(4000);
    timers.slot(0).setBreak(77);
    timers.slot(0).setNote(u"line\r\nline");
    timers.reset(2);
    journal.write(timers, clock.now());

    const RecoveredTimers found = TimerJournal(registry).read();
    EXPECT_EQ(found.written, clock.now());
    ASSERT_EQ(found.timers.size(), 2U);
    EXPECT_EQ(found.timers[0].source, source.id);
    billing::EntryTimer expected = timers.slot(0);
    expected.setSource({});
    EXPECT_EQ(found.timers[0].timer, expected);
    EXPECT_EQ(found.timers[1].slot, 1U);
    EXPECT_EQ(found.timers[1].timer, timers.slot(1));
}

TEST_F(TimerJournalTest, LeavesNothingWhenNoTimerIsInUse) {
    timers.add({}, {});
    journal.write(timers, clock.now());
    timers.reset(0);
    journal.write(timers, clock.now());
    EXPECT_TRUE(journal.read().timers.empty());
    EXPECT_EQ(registry.open(u"Software\\Hourwright\\Timers"), nullptr);
}

TEST_F(TimerJournalTest, LeavesOutWhatIsDamaged) {
    struct Row {
        std::u16string_view value;
        std::uint32_t number;
    };
    for (const Row& row : {Row{u"State0", 3}, Row{u"Duration0", 0x8000'0000}, Row{u"Start0", 1}}) {
        timers.reset(0);
        timers.add({}, {});
        journal.write(timers, clock.now());
        ASSERT_EQ(journal.read().timers.size(), 1U);
        registry.open(u"Software\\Hourwright\\Timers")->writeDword(row.value, row.number);
        EXPECT_TRUE(journal.read().timers.empty()) << std::string(row.value.begin(), row.value.end());
    }
}

} // namespace

} // namespace hourwright::app
