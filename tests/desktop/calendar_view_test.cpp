#include "desktop/calendar/calendar_view.h"

#include "desktop/desktop_fixture.h"
#include "desktop/main_window.h"

#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace hourwright::desktop {
namespace {

// The week of Monday, 16 November 2026, in the main window.
class CalendarViewTest : public test::DesktopFixture {
protected:
    CalendarViewTest() {
        settings().styleFlags.set(app::StyleFlag::weekStartsMonday);
        workspace().view().setCalendar(true);
        workspace().view().settingsChanged();
        workspace().view().setKind(app::PeriodKind::week);
        workspace().view().goToToday();
    }

    store::RecordId addEntry(std::uint16_t day, std::uint16_t hour, std::int32_t duration, std::int32_t breakTime = 0) {
        store::TimeEntry entry;
        EXPECT_TRUE(store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = day, .hour = hour}));
        entry.client = u"Acme";
        entry.task = u"Review";
        entry.duration = duration;
        entry.breakTime = breakTime;
        return add(entry);
    }
    void open() {
        window_ = std::make_unique<MainWindow>(workspace());
        window_->openNew = [this](const EntrySeed& seed) { seeds_.push_back(seed); };
        window_->resize(1000, 700);
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        grid().setFocus();
    }
    TimeGrid& grid() { return *window_->view().findChild<TimeGrid*>(); }
    MonthGrid& month() { return *window_->view().findChild<MonthGrid*>(); }
    RecordView& view() { return window_->view(); }

    QPoint place(int day, int minute) {
        const QRect rect = grid().spanRect(day, {minute, minute});
        return {rect.center().x(), rect.top() + 1};
    }
    void drag(QPoint from, QPoint to) {
        auto* port = grid().viewport();
        QTest::mousePress(port, Qt::LeftButton, {}, from);
        moveMouse(from + (to - from) / 2);
        moveMouse(to);
        QTest::mouseRelease(port, Qt::LeftButton, {}, to);
    }
    // QTest's own moves carry no buttons.
    void moveMouse(QPoint to) {
        auto* port = grid().viewport();
        QMouseEvent move(QEvent::MouseMove, to, port->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(port, &move);
    }
    // A finger, which the toolkit turns into a mouse.
    void touch(QEvent::Type type, QPoint at) {
        auto* port = grid().viewport();
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, at, port->mapToGlobal(at), button, buttons, {}, Qt::MouseEventSynthesizedByQt);
        QCoreApplication::sendEvent(port, &event);
    }
    // Clicks right, then chooses a command of the menu that opens; how many commands it has.
    int chooseFromMenu(QWidget* widget, QPoint at, app::Command command) {
        int count = 0;
        QTimer::singleShot(0, widget, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            count = static_cast<int>(menu->actions().size());
            menu->setActiveAction(window_->actions().action(command));
            QTest::keyClick(menu, Qt::Key_Return);
            menu->close();
        });
        QTest::mousePress(widget, Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
        QCoreApplication::sendEvent(widget, &event);
        QTest::mouseRelease(widget, Qt::RightButton, {}, at);
        return count;
    }
    static std::string toClock(const platform::SystemTime& time) {
        char text[16];
        std::snprintf(text, sizeof text, " %02d:%02d", time.hour, time.minute);
        return text;
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&grid(), key, modifiers); }
    std::string only() {
        const auto all = entries();
        if (all.size() != 1)
            return std::to_string(all.size()) + " entries";
        const auto date = platform::toSystemTime(all.front().date).value();
        char text[64];
        std::snprintf(text, sizeof text, "%d %02d:%02d:%02d %d", date.day, date.hour, date.minute, date.second,
                      all.front().duration);
        return text;
    }

    std::unique_ptr<MainWindow> window_;
    std::vector<EntrySeed> seeds_;
};

TEST_F(CalendarViewTest, markingEmptyTimeAsksForANewEntry) {
    addEntry(16, 9, 100);
    open();
    drag(place(2, 600), place(2, 687));
    ASSERT_EQ(seeds_.size(), 1U);
    EXPECT_EQ(seeds_[0].day.day, 18);
    EXPECT_EQ(seeds_[0].start->hour, 10);
    EXPECT_EQ(seeds_[0].start->minute, 0);
    EXPECT_EQ(seeds_[0].minutes, 90);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place(3, 660));
    ASSERT_EQ(seeds_.size(), 2U);
    EXPECT_EQ(seeds_[1].day.day, 19);
    EXPECT_EQ(seeds_[1].minutes, std::nullopt);
}

TEST_F(CalendarViewTest, aBlockIsMovedToAnotherDayAndTime) {
    addEntry(16, 9, 150, 50);
    open();
    drag(place(0, 570), place(3, 705)); // three days and two hours and a quarter on
    EXPECT_EQ(only(), "19 11:15:01 150");
    EXPECT_EQ(entries().front().modified, clock().now());
    EXPECT_EQ(view().selection().size(), 1U);
}

TEST_F(CalendarViewTest, aFingerScrollsOrTakesHoldOfABlock) {
    addEntry(16, 9, 150, 50);
    open();
    QSignalSpy menus(&grid(), &TimeGrid::contextMenuRequested);
    QSignalSpy placeMenus(&grid(), &TimeGrid::placeMenuRequested);
    QObject::disconnect(&grid(), nullptr, &view(), nullptr); // a menu would wait for a choice
    const QPoint block = place(0, 570);
    const int scroll = grid().verticalScrollBar()->value();

    touch(QEvent::MouseButtonPress, block);
    touch(QEvent::MouseMove, block - QPoint(0, 60));
    touch(QEvent::MouseButtonRelease, block - QPoint(0, 60));
    EXPECT_EQ(grid().verticalScrollBar()->value(), scroll + 60);
    EXPECT_EQ(only(), "16 09:00:01 150");
    grid().verticalScrollBar()->setValue(scroll);

    constexpr int longEnough = 800;
    touch(QEvent::MouseButtonPress, block);
    QTest::qWait(longEnough);
    EXPECT_EQ(menus.count(), 0);
    touch(QEvent::MouseMove, place(1, 600));
    touch(QEvent::MouseMove, place(3, 705));
    touch(QEvent::MouseButtonRelease, place(3, 705));
    EXPECT_EQ(only(), "19 11:15:01 150");
    EXPECT_EQ(grid().verticalScrollBar()->value(), scroll);

    for (const QPoint at : {place(3, 705), place(5, 600)}) { // the block where it is now, empty time
        touch(QEvent::MouseButtonPress, at);
        QTest::qWait(longEnough);
        touch(QEvent::MouseButtonRelease, at);
    }
    EXPECT_EQ(menus.count(), 1);
    EXPECT_EQ(placeMenus.count(), 1);
    EXPECT_EQ(only(), "19 11:15:01 150");
}

TEST_F(CalendarViewTest, edgesChangeStartAndDuration) {
    const auto id = addEntry(16, 9, 150, 50);
    open();
    const auto index = 0U;
    const QPoint anHour(0, grid().grid().hourHeight);
    QRect block = grid().blockRect(index);
    QPoint edge(block.center().x(), block.bottom() - 1);
    drag(edge, edge + anHour);
    EXPECT_EQ(only(), "16 09:00:01 250"); // till noon with half an hour of break
    block = grid().blockRect(index);
    edge.setY(block.top() + 1);
    drag(edge, edge + anHour);
    EXPECT_EQ(only(), "16 10:00:01 150");
    EXPECT_EQ(view().selection(), std::vector{id});
}

TEST_F(CalendarViewTest, escapeTakesTheDragBack) {
    addEntry(16, 9, 100);
    open();
    QTest::mousePress(grid().viewport(), Qt::LeftButton, {}, place(0, 570));
    moveMouse(place(2, 700));
    key(Qt::Key_Escape);
    QTest::mouseRelease(grid().viewport(), Qt::LeftButton, {}, place(2, 700));
    EXPECT_EQ(only(), "16 09:00:01 100");
    EXPECT_TRUE(seeds_.empty());
}

TEST_F(CalendarViewTest, theKeyboardDoesAllOfIt) {
    const auto id = addEntry(16, 9, 100);
    open();
    view().select(std::vector{id});
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(only(), "16 09:05:01 100");
    key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(only(), "17 09:05:01 100");
    key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(only(), "17 09:05:01 108"); // 65 minutes
    key(Qt::Key_Up, Qt::AltModifier | Qt::ShiftModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(only(), "17 09:00:01 100");
    EXPECT_TRUE(grid().accessibleDescription().contains("Acme"));
    key(Qt::Key_Down); // the slot after it, half past ten being the next but one
    EXPECT_TRUE(view().selection().empty());
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Return);
    ASSERT_EQ(seeds_.size(), 1U);
    EXPECT_EQ(seeds_[0].day.day, 17);
    EXPECT_EQ(seeds_[0].start->hour, 10);
    EXPECT_EQ(seeds_[0].minutes, 60);
    QSignalSpy opened(&view(), &RecordView::activated);
    key(Qt::Key_Up);
    key(Qt::Key_Return);
    EXPECT_EQ(opened.count(), 1);
}

TEST_F(CalendarViewTest, reloadKeepsSelectionAndScrollPosition) {
    const auto id = addEntry(16, 9, 100);
    addEntry(17, 9, 100);
    open();
    view().select(std::vector{id});
    grid().verticalScrollBar()->setValue(37);
    addEntry(16, 8, 50); // before it in the order of dates
    view().reload();
    EXPECT_EQ(view().selection(), std::vector{id});
    EXPECT_EQ(grid().verticalScrollBar()->value(), 37);
    EXPECT_EQ(view().totals().items, 3U);
    EXPECT_EQ(view().findNext("review"), Found::yes);
    EXPECT_NE(view().selection(), std::vector{id});
    view().selectAll();
    EXPECT_EQ(view().selectedText().count('\n'), 2);
}

TEST_F(CalendarViewTest, anEntryThatIsGoneIsReportedAndNotWritten) {
    addEntry(16, 9, 100);
    open();
    change([&](auto& transaction) {
        stores().entries().seek(platform::Seek::toBeginning());
        EXPECT_TRUE(stores().entries().deleteCurrent(transaction));
    });
    drag(place(0, 570), place(3, 690));
    EXPECT_EQ(messages().ids(), std::vector{resources::StringId::error});
    EXPECT_TRUE(entries().empty());
}

TEST_F(CalendarViewTest, theMenuOfAnEmptyPlaceBeginsARecordThere) {
    const auto id = addEntry(16, 9, 100);
    open();
    struct Case {
        const char* name;
        app::PeriodKind period;
        app::Command command;
        std::function<std::pair<QWidget*, QPoint>()> where;
        std::string expected; // the day of the month and the time of day that the record begins with
    };
    const std::vector<Case> cases{
        {"week", app::PeriodKind::week, app::Command::newEntry,
         [&] {
             return std::pair{grid().viewport(), place(2, 640)};
         },
         "18 10:30"},
        {"beside the entry, same day", app::PeriodKind::week, app::Command::newEntry,
         [&] {
             return std::pair{grid().viewport(), place(0, 725)};
         },
         "16 12:00"},
        {"day", app::PeriodKind::day, app::Command::newEntry,
         [&] {
             return std::pair{grid().viewport(), place(0, 865)};
         },
         "16 14:00"},
        {"month", app::PeriodKind::month, app::Command::newEntry,
         [&] {
             return std::pair<QWidget*, QPoint>{&month(), month().cellRect(10).center()};
         },
         "5 --:--"},
        {"expense", app::PeriodKind::month, app::Command::newGeneralExpense,
         [&] {
             return std::pair<QWidget*, QPoint>{&month(), month().cellRect(11).center()};
         },
         "6 --:--"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        workspace().view().setKind(test.period);
        window_->showView();
        view().select(std::vector{id});
        const auto [widget, at] = test.where();
        std::string chosen;
        const auto note = [&] {
            const auto seed = window_->takePlace();
            chosen = !seed ? "today" : std::to_string(seed->day.day) + (seed->start ? toClock(*seed->start) : " --:--");
        };
        window_->commands().set(test.command, note);
        EXPECT_EQ(chooseFromMenu(widget, at, test.command), 3);
        EXPECT_EQ(chosen, test.expected);
        EXPECT_TRUE(view().selection().empty());
        EXPECT_EQ(window_->takePlace(), std::nullopt);
    }
}

TEST_F(CalendarViewTest, theMenuKeyIsAboutTheSelection) {
    const auto id = addEntry(16, 9, 100);
    open();
    view().select(std::vector{id});
    key(Qt::Key_Down, Qt::ControlModifier); // the cursor goes on without it
    QSignalSpy menus(&grid(), &TimeGrid::contextMenuRequested);
    QSignalSpy placeMenus(&grid(), &TimeGrid::placeMenuRequested);
    QObject::disconnect(&grid(), nullptr, &view(), nullptr);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&grid(), &event);
    EXPECT_EQ(menus.count(), 1);
    EXPECT_EQ(placeMenus.count(), 0);
}

TEST_F(CalendarViewTest, theMonthGoesFromDayToDayAndOpensOne) {
    addEntry(17, 9, 100);
    open();
    workspace().view().setKind(app::PeriodKind::month);
    window_->showView();
    month().setFocus();
    QTest::keyClick(&month(), Qt::Key_Right);
    QTest::keyClick(&month(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(view().selection().size(), 1U);
    QTest::keyClick(&month(), Qt::Key_Down);
    EXPECT_TRUE(view().selection().empty());
    QTest::keyClick(&month(), Qt::Key_Return);
    EXPECT_EQ(workspace().view().kind(), app::PeriodKind::day);
    EXPECT_EQ(workspace().view().period().currentDate().day, 24);
}

} // namespace
} // namespace hourwright::desktop
