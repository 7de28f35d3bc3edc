#include "desktop/screens/screens.h"
#include "desktop/timers/timer_control.h"
#include "desktop/timers/timer_dialogs.h"
#include "desktop/timers/timers_window.h"
#include "platform/posix/led_class_vibrator.h"
#include "platform/qt/qt_system_timer.h"
#include "platform/sqlite/sqlite_registry.h"

#include <memory>

namespace hourwright::desktop {

namespace {

// Timers of a picture alone; they live as long as its window.
struct Timers {
    explicit Timers(Workspace& workspace)
        : set(workspace.clock(), ticks),
          journal(platform::openSqliteRegistry(workspace.directories().state / "timers.db")),
          control(workspace, set, leds, *journal) {}

    platform::QtSystemTimer ticks;
    billing::TimerSet set;
    platform::LedClassVibrator leds{"/nowhere"};
    std::unique_ptr<platform::SqliteRegistry> journal;
    TimerControl control;
};

QWidget* timersWindow(MainWindow& window) {
    auto timers = std::make_shared<Timers>(window.workspace());
    const billing::TimerNames names[] = {{u"Alder & Finch", u"Office move", u"Design", u"Planning"},
                                         {u"Café Lumière", u"Annual audit", u"", u"Phone call"},
                                         {u"Kestrel Air Cargo", u"Stock control", u"Build", u"Prototype"},
                                         {u"Oak Hill Farms", u"", u"", u"Review"}};
    for (std::size_t slot = 0; slot < 4; ++slot) {
        timers->control.add(names[slot], {});
        timers->control.setTimes(slot, 5025 - static_cast<std::int32_t>(slot) * 1200, 600);
    }
    timers->control.togglePause(1);
    timers->control.setNote(0, u"Called back about the second floor.");
    auto* shown = new TimersWindow(timers->control, &window);
    shown->select(0);
    QObject::connect(shown, &QObject::destroyed, [timers]() mutable { timers.reset(); });
    return shown;
}

} // namespace

void addTimerScreens(std::vector<Screen>& screens) {
    screens.push_back({"timers", timersWindow});
    screens.push_back({"timers-add", [](MainWindow& window) -> QWidget* {
                           return new AddTimerDialog(window.workspace(), {.client = u"Alder & Finch"}, &window);
                       }});
    screens.push_back({"timers-edit", [](MainWindow& window) -> QWidget* {
                           billing::EntryTimer timer;
                           timer.setDuration(5025);
                           return new EditTimerDialog(window.workspace(), timer, &window);
                       }});
    screens.push_back({"timers-doubt", [](MainWindow& window) -> QWidget* {
                           billing::EntryTimer timer;
                           timer.setNames({.client = u"Alder & Finch", .task = u"Planning"});
                           return new DoubtDialog({.doubt = app::TimerDoubt::gap, .slot = 0, .seconds = 30'600}, timer,
                                                  &window);
                       }});
}

} // namespace hourwright::desktop
