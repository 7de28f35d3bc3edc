#pragma once

#include "desktop/main_window.h"
#include "desktop/timers/timer_control.h"
#include "desktop/timers/timer_guard.h"
#include "desktop/timers/timer_tray.h"
#include "desktop/timers/timers_window.h"

#include <QPointer>
#include <memory>

namespace hourwright::desktop {

/// The timers of a running window: its menu commands, the timers' window, the tray, the questions, and the answers to
/// other programs. It lives as long as the main window.
class TimerDesk : public QObject {
    Q_OBJECT

public:
    /// Borrows all of it. The journal's registry is one of its own.
    TimerDesk(MainWindow& window, billing::TimerSet& timers, platform::NotificationLeds& leds,
              platform::Registry& journal, platform::IdleTime& idleTime);

    [[nodiscard]] TimerControl& control() { return control_; }
    /// The timers' window, made at the first call.
    [[nodiscard]] TimersWindow& timersWindow();
    /// Offers what a crashed program left behind; to be called once the window is shown.
    void start() { guard_->offerRecovery(); }

private:
    void addCommands();
    void showWindow();
    void startFromSelection();
    void setOption(std::u16string_view name, bool on);
    [[nodiscard]] bool option(std::u16string_view name, bool byDefault);

    MainWindow& window_;
    TimerControl control_;
    TimerGuard* guard_;
    TimerTray* tray_;
    QPointer<TimersWindow> timersWindow_;
};

} // namespace hourwright::desktop
