#pragma once

#include "desktop/timers/timer_control.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace hourwright::desktop {

/// The timers in the tray: whether one runs, its time, and starting, pausing and completing without the window. There
/// is nothing to see where no tray answers.
class TimerTray : public QObject {
    Q_OBJECT

public:
    TimerTray(TimerControl& control, QObject* parent);

    void setShown(bool shown);

signals:
    void windowRequested();
    void addRequested();

private:
    void refresh();
    void buildMenu();

    TimerControl& control_;
    QSystemTrayIcon icon_;
    QMenu menu_;
};

} // namespace hourwright::desktop
