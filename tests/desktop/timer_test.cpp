#include "desktop/timers/timer_control.h"

#include "desktop/desktop_fixture.h"
#include "desktop/timers/timer_dialogs.h"
#include "desktop/timers/timers_window.h"
#include "platform/notification_leds.h"
#include "support/manual_timer.h"
#include "support/memory_registry.h"

#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTreeWidget>

namespace hourwright::desktop {
namespace {

using exchange::TimerAction;
using exchange::TimerOutcome;
using resources::StringId;

// A device with LEDs; remembers what was switched.
class RecordingLeds : public platform::NotificationLeds {
public:
    [[nodiscard]] std::size_t count() const override { return 2; }
    void set(std::size_t led, bool on) override { switched.emplace_back(led, on); }
    void sleep(std::chrono::milliseconds time) override { slept += time; }

    std::vector<std::pair<std::size_t, bool>> switched;
    std::chrono::milliseconds slept{0};
};

class TimerTest : public test::DesktopFixture {
protected:
    TimerTest() {
        control.openEditor = [this](const store::TimeEntry& entry, const std::optional<app::KeptTimer>& timer,
                                    std::function<void()> closed) {
            edited.push_back(entry);
            completed = timer;
            closeEditor = std::move(closed);
        };
    }

    void run(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            clock().advance(1);
            ticks.fire();
        }
    }

    test::ManualTimer ticks;
    billing::TimerSet timers{clock(), ticks};
    RecordingLeds leds;
    test::MemoryRegistry journal;
    TimerControl control{workspace(), timers, leds, journal};
    std::vector<store::TimeEntry> edited;
    std::optional<app::KeptTimer> completed;
    std::function<void()> closeEditor;
};

// A draft of an entry that completes a timer may come back together with that timer; its time must not count twice.
TEST_F(TimerTest, ADraftFreesTheTimerThatItCompletesAndNoOther) {
    control.add({.client = u"Other"}, {});
    control.add({.client = u"Acme"}, {});
    run(60);
    control.complete(1);
    ASSERT_TRUE(completed.has_value());
    const app::KeptTimer timer = *completed;
    control.freeCompleted({9, timer.start});
    control.freeCompleted({1, {timer.start.ticks + 1}}); // another one in this slot
    EXPECT_EQ(timers.inUse(), 2U);
    control.freeCompleted(timer);
    EXPECT_TRUE(timers.slot(1).isFree());
    EXPECT_EQ(timers.inUse(), 1U);
    control.freeCompleted(timer);
    EXPECT_EQ(timers.inUse(), 1U);
}

TEST_F(TimerTest, VibratesWhenATimerStartsAndPausesIfWanted) {
    control.add({}, {});
    control.togglePause(0);
    EXPECT_EQ(leds.switched, (std::vector<std::pair<std::size_t, bool>>{{1, true}, {1, false}, {1, true}, {1, false}}));
    EXPECT_EQ(leds.slept, std::chrono::milliseconds(200));
    settings().styleFlags.set(app::StyleFlag::vibrate, false);
    control.togglePause(0);
    EXPECT_EQ(leds.switched.size(), 4U);
}

TEST_F(TimerTest, IsFreeOnceTheEditorIsClosedHoweverItWas) {
    control.add({.client = u"Acme", .task = u"Review"}, {});
    run(3600);
    control.complete(0);
    ASSERT_EQ(edited.size(), 1U);
    EXPECT_EQ(edited[0].duration, 100);
    EXPECT_EQ(edited[0].client, u"Acme");
    EXPECT_FALSE(timers.slot(0).isFree());
    closeEditor();
    EXPECT_TRUE(timers.slot(0).isFree());
}

TEST_F(TimerTest, AnnouncesATooLargeNoteBeforeTheEditorOpens) {
    control.add({}, {});
    control.setNote(0, std::u16string(65'001, u'n'));
    control.complete(0);
    EXPECT_EQ(messages().ids(), std::vector{StringId::timerNoteTooLarge});
    EXPECT_EQ(edited.size(), 1U);
}

TEST_F(TimerTest, IsCancelledAfterAQuestionOnly) {
    control.add({}, {});
    messages().script = {platform::Answer::no, platform::Answer::yes};
    EXPECT_FALSE(control.cancel(0));
    EXPECT_FALSE(timers.slot(0).isFree());
    EXPECT_TRUE(control.cancel(0));
    EXPECT_TRUE(timers.slot(0).isFree());
    EXPECT_EQ(messages().ids(), (std::vector{StringId::cancelTimer, StringId::cancelTimer}));
}

TEST_F(TimerTest, AnswersOtherPrograms) {
    EXPECT_TRUE(control.answer({}).timers.empty());
    const auto added = control.answer({.action = TimerAction::add, .names = {.task = u"Call"}, .note = u"n"});
    ASSERT_EQ(added.timers.size(), 1U);
    EXPECT_EQ(added.timers[0].note, u"n");
    EXPECT_TRUE(control.answer({.action = TimerAction::pause, .slot = 0}).timers[0].paused);
    EXPECT_TRUE(control.answer({.action = TimerAction::pause, .slot = 0}).timers[0].paused) << "pausing twice pauses";
    EXPECT_FALSE(control.answer({.action = TimerAction::resume, .slot = 0}).timers[0].paused);
    EXPECT_EQ(control.answer({.action = TimerAction::edit, .slot = 0, .duration = 3600}).timers[0].duration, 3600);
    EXPECT_EQ(control.answer({.action = TimerAction::cancel, .slot = 3}).outcome, TimerOutcome::slotFree);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(control.answer({.action = TimerAction::add}).outcome, TimerOutcome::done);
    EXPECT_EQ(control.answer({.action = TimerAction::add}).outcome, TimerOutcome::noFreeSlot);
    EXPECT_TRUE(messages().shown.empty());
}

TEST_F(TimerTest, SavesACompletedTimerForAnotherProgramUnlessAFieldIsMissing) {
    control.answer({.action = TimerAction::add});
    control.answer({.action = TimerAction::edit, .slot = 0, .duration = 3000, .breakTime = 600});
    const auto refused = control.answer({.action = TimerAction::complete, .slot = 0, .save = true});
    EXPECT_EQ(refused.outcome, TimerOutcome::refused);
    EXPECT_EQ(refused.message, resources::number(StringId::taskMissing));
    EXPECT_FALSE(timers.slot(0).isFree());
    control.answer({.action = TimerAction::add, .names = {.task = u"Call"}});
    control.answer({.action = TimerAction::edit, .slot = 1, .duration = 3000, .breakTime = 600});
    const auto saved = control.answer({.action = TimerAction::complete, .slot = 1, .save = true});
    EXPECT_EQ(saved.outcome, TimerOutcome::done);
    ASSERT_EQ(entries().size(), 1U);
    EXPECT_EQ(saved.record, static_cast<std::uint32_t>(entries()[0].id));
    EXPECT_EQ(entries()[0].duration, 83);
    EXPECT_EQ(entries()[0].breakTime, 16);
    EXPECT_TRUE(timers.slot(1).isFree());
}

TEST_F(TimerTest, GoesOnAfterACrash) {
    store::TimeEntry source;
    store::setDateWithoutStart(source, clock().localTime());
    source.task = u"Review";
    source.rate = 4550;
    add(source);
    control.add({.task = u"Review"}, {}, entries()[0]);
    run(30);
    control.writeJournal();
    clock().advance(100);

    test::ManualTimer newTicks;
    billing::TimerSet newTimers(clock(), newTicks);
    TimerControl next(workspace(), newTimers, leds, journal);
    const auto left = next.leftBehind();
    ASSERT_EQ(left.timers.size(), 1U);
    next.recover(left, true);
    EXPECT_EQ(newTimers.slot(0).duration(), 130);
    ASSERT_TRUE(newTimers.slot(0).source());
    EXPECT_EQ(newTimers.slot(0).source()->rate, 4550);
    next.forget();
    EXPECT_TRUE(next.leftBehind().timers.empty());
}

TEST_F(TimerTest, TrimsAndSplitsTimeInDoubt) {
    std::vector<app::DoubtfulTime> doubts;
    QObject::connect(&control, &TimerControl::doubted, [&](const auto& found) { doubts = found; });
    control.add({.task = u"Night"}, {});
    run(600);
    clock().advance(8 * 3600);
    ticks.fire();
    ASSERT_EQ(doubts.size(), 1U);
    EXPECT_EQ(doubts[0].seconds, 8 * 3600);
    control.settle(doubts[0], app::DoubtAnswer::keep);
    EXPECT_EQ(timers.slot(0).duration(), 600 + 8 * 3600);
    control.settle(doubts[0], app::DoubtAnswer::split);
    EXPECT_EQ(timers.slot(0).duration(), 0);
    ASSERT_EQ(edited.size(), 1U);
    EXPECT_EQ(edited[0].duration, 16);
    EXPECT_EQ(edited[0].task, u"Night");
}

TEST_F(TimerTest, ShowsTimersAndKeepsANoteForEach) {
    TimersWindow window(control, nullptr);
    window.show();
    control.add({.client = u"Acme", .task = u"Review"}, {});
    control.add({.client = u"Beta"}, {});
    run(5);
    auto* list = window.findChild<QTreeWidget*>();
    auto* note = window.findChild<QPlainTextEdit*>();
    ASSERT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(list->topLevelItem(0)->text(0), "00:00:05");
    EXPECT_EQ(list->topLevelItem(0)->text(1), "9:00 AM");
    EXPECT_EQ(list->topLevelItem(1)->text(2), "Beta");
    window.select(1);
    QTest::keyClicks(note, "second");
    window.select(0);
    EXPECT_EQ(note->toPlainText(), "");
    QTest::keyClicks(note, "first");
    EXPECT_EQ(timers.slot(0).note(), u"first");
    EXPECT_EQ(timers.slot(1).note(), u"second");
    control.togglePause(0);
    run(5);
    EXPECT_EQ(list->topLevelItem(0)->text(0), "00:00:05");
    EXPECT_EQ(list->topLevelItem(0)->text(6), "00:00:00") << "breaks are not shown live";
    settings().breakOption = billing::breakFromTimer;
    run(1);
    EXPECT_EQ(list->topLevelItem(0)->text(6), "00:00:06");
}

TEST_F(TimerTest, EditsHoursMinutesAndSeconds) {
    billing::EntryTimer timer;
    timer.setDuration(5025);
    EditTimerDialog dialog(workspace(), timer, nullptr);
    auto fields = dialog.findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 6);
    EXPECT_EQ(fields[0]->text() + fields[1]->text() + fields[2]->text(), "12345");
    fields[0]->setText("-1");
    fields[3]->setText("x");
    QMetaObject::invokeMethod(&dialog, "accept");
    EXPECT_EQ(messages().ids(), std::vector{StringId::error});
    fields[0]->setText("2");
    QMetaObject::invokeMethod(&dialog, "accept");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.duration(), 2 * 3600 + 23 * 60 + 45);
    EXPECT_EQ(dialog.breakTime(), 0);
}

} // namespace
} // namespace hourwright::desktop
