#include "app/demo/demo_store.h"
#include "desktop/desktop_fixture.h"
#include "desktop/main_window.h"
#include "desktop/store_dump.h"
#include "desktop/timers/timer_desk.h"
#include "exchange/note_document.h"
#include "platform/notification_leds.h"
#include "support/manual_timer.h"
#include "support/memory_registry.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

namespace hourwright::desktop {
namespace {

using app::Command;

class NoLeds : public platform::NotificationLeds {
public:
    [[nodiscard]] std::size_t count() const override { return 0; }
    void set(std::size_t, bool) override {}
    void sleep(std::chrono::milliseconds) override {}
};

class NoIdleTime : public platform::IdleTime {
public:
    std::optional<std::chrono::seconds> read() override { return std::nullopt; }
};

// What changes records at once, without a dialog or a question.
bool changesAtOnce(Command command) {
    return command == Command::markBilled || command == Command::markPaid || command == Command::redo;
}

// Walks through all commands as a user who opens everything and cancels it.
class CommandWalkTest : public test::DesktopFixture {
protected:
    CommandWalkTest() {
        closer_.start(1);
        QObject::connect(&closer_, &QTimer::timeout, &closer_, [this] { closeWhatIsOpen(); });
    }

    void fill() {
        const app::demo::DemoOptions options{.entries = 24, .lastDay = clock().localTime()};
        const auto encode = [](std::u16string_view text) { return exchange::writeNote(exchange::fromPlainText(text)); };
        ASSERT_EQ(app::demo::fillWithDemoHistory(stores(), options, encode), app::demo::DemoResult::done);
    }

    MainWindow& window() {
        if (!window_) {
            window_ = std::make_unique<MainWindow>(workspace());
            desk_ = std::make_unique<TimerDesk>(*window_, timers_, leds_, journal_, idleTime_);
            window_->show();
        }
        return *window_;
    }

    /// Triggers each command that the user could choose now, after `prepare`.
    void walk(const char* state, const std::function<void()>& prepare) {
        before_ = test::dumpOf(objects());
        for (const app::CommandRow& row : app::commandTable()) {
            prepare();
            window().actions().update();
            const QAction* action = window().actions().action(row.command);
            if (row.command != Command::quit && action->isVisible() && action->isEnabled())
                run(row.command, std::string(state) + ", " + action->text().toStdString());
        }
    }

    void run(Command command, const std::string& name) {
        ASSERT_TRUE(window().commands().has(command)) << name;
        closed_ = 0;
        messages().shown.clear();
        window().actions().action(command)->trigger();
        QTest::qWait(1);
        closeWhatIsOpen();
        ++walked_;
        for (const platform::Message& message : messages().shown)
            EXPECT_NE(message.icon, platform::Icon::stop) << name;
        if (changesAtOnce(command)) {
            EXPECT_NE(test::dumpOf(objects()), before_) << name;
            EXPECT_TRUE(workspace().undo()) << name;
        } else if (command == Command::undo) {
            EXPECT_TRUE(workspace().redo()) << name;
        }
        EXPECT_EQ(test::dumpOf(objects()), before_) << name;
        const bool opened = closed_ > 0 || !messages().shown.empty() || !fileDialogs().requests.empty();
        const bool says = QString::fromStdString(name).endsWith("...") && command != Command::find; // which opens a bar
        EXPECT_TRUE(opened || !says) << name << " opens nothing";
        fileDialogs().requests.clear();
    }

    void closeWhatIsOpen() {
        if (auto* popup = QApplication::activePopupWidget()) {
            ++closed_;
            popup->close();
        }
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<QDialog*>(widget); dialog != nullptr && dialog->isVisible()) {
                ++closed_;
                dialog->reject();
            }
    }

    int walked_ = 0;
    int closed_ = 0;

private:
    std::string before_;
    test::ManualTimer ticks_;
    billing::TimerSet timers_{clock(), ticks_};
    NoLeds leds_;
    NoIdleTime idleTime_;
    test::MemoryRegistry journal_;
    QTimer closer_;
    std::unique_ptr<MainWindow> window_;
    std::unique_ptr<TimerDesk> desk_;
};

TEST_F(CommandWalkTest, EverythingOpensAndCancelledChangesNothing) {
    fill();
    auto& view = workspace().view();
    // One change to undo, and one to redo.
    const auto changeOnce = [this] {
        store::TimeEntry entry;
        entry.task = u"Review";
        entry.date = clock().now();
        EXPECT_TRUE(workspace().change(u"Add", [&](platform::Transaction& transaction) {
            return store::insertTimeEntry(transaction, stores().entries(), entry);
        }));
    };
    changeOnce();
    const auto show = [&](app::RecordKind records, bool calendar, app::ListStyle style, app::PeriodKind kind) {
        view.goToToday();
        view.showRecords(records);
        view.setKind(kind);
        view.setCalendar(calendar);
        view.setListStyle(style);
        view.setCalendar(calendar);
        workspace().entryFilter().showAll();
        workspace().expenseFilter().showAll();
        window().showView();
    };
    struct State {
        const char* name;
        app::RecordKind records;
        bool calendar;
        app::ListStyle style;
        app::PeriodKind kind;
        bool selects;
    };
    using enum app::RecordKind;
    using app::ListStyle;
    using app::PeriodKind;
    for (const State& state :
         {State{"list", entries, false, ListStyle::standard, PeriodKind::month, true},
          State{"simple list, nothing selected", entries, false, ListStyle::simple, PeriodKind::day, false},
          State{"calendar", entries, true, ListStyle::standard, PeriodKind::week, true},
          State{"expenses", expenses, false, ListStyle::standard, PeriodKind::month, true}}) {
        walked_ = 0;
        walk(state.name, [&] {
            show(state.records, state.calendar, state.style, state.kind);
            const auto id = state.records == entries ? this->entries().back().id : this->expenses().back().id;
            window().select(state.selects ? std::span(&id, 1) : std::span<const store::RecordId>{});
            EXPECT_EQ(window().view().selection().size(), state.selects ? 1U : 0U) << state.name;
        });
        EXPECT_GT(walked_, 30) << state.name;
    }
}

TEST_F(CommandWalkTest, AnEmptyStoreHasNothingThatFails) {
    for (const auto records : {app::RecordKind::entries, app::RecordKind::expenses}) {
        walked_ = 0;
        walk("empty", [&] {
            workspace().view().showRecords(records);
            window().showView();
        });
        EXPECT_GT(walked_, 25);
    }
}

} // namespace
} // namespace hourwright::desktop
