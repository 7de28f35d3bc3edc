#pragma once

#include "desktop/timers/timer_control.h"
#ifndef Q_MOC_RUN
#include "platform/idle_time.h"
#endif

#include <QObject>
#include <QWidget>
#include <deque>

namespace hourwright::desktop {

/// Asks about time that a running timer may have counted wrongly: one question after the other, none twice, over the
/// window. It watches the user's input in the program, and the session's idle time when told to.
class TimerGuard : public QObject {
    Q_OBJECT

public:
    TimerGuard(TimerControl& control, platform::IdleTime& idleTime, QWidget* window);

    void watchIdle(bool on) { watchesIdle_ = on; }
    /// Offers the timers that a crashed program left behind, if any.
    void offerRecovery();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void look();
    void ask(const std::vector<app::DoubtfulTime>& doubts);
    void askNext();

    TimerControl& control_;
    platform::IdleTime& idleTime_;
    QWidget* window_;
    app::IdleWatch watch_;
    std::deque<app::DoubtfulTime> waiting_;
    bool asking_ = false;
    bool watchesIdle_ = false;
    platform::FileTime lastActivity_;
};

} // namespace hourwright::desktop
