#include "desktop/timers/timer_tray.h"

#include "desktop/icons.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/timers.h"

namespace hourwright::desktop {

using platform::toQString;
namespace texts = resources::timers;

namespace {

QString describe(const billing::EntryTimer& timer) {
    const auto& names = timer.names();
    const std::u16string& name = names.client.empty() ? names.task : names.client;
    const QString state = timer.isPaused() ? " (" + toQString(texts::paused) + ')' : QString();
    return toQString(billing::clockText(timer.duration())) + "  " + toQString(name) + state;
}

} // namespace

TimerTray::TimerTray(TimerControl& control, QObject* parent) : QObject(parent), control_(control) {
    icon_.setContextMenu(&menu_);
    connect(&control_, &TimerControl::changed, this, &TimerTray::refresh);
    connect(&control_, &TimerControl::ticked, this, &TimerTray::refresh);
    connect(&menu_, &QMenu::aboutToShow, this, &TimerTray::buildMenu);
    connect(&icon_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            emit windowRequested();
    });
    buildMenu();
}

void TimerTray::setShown(bool shown) {
    refresh();
    icon_.setVisible(shown && QSystemTrayIcon::isSystemTrayAvailable());
}

// The application's icon while nothing runs, a clock that runs or stands otherwise.
void TimerTray::refresh() {
    QStringList lines;
    bool running = false;
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot) {
        const auto& timer = control_.timers().slot(slot);
        if (timer.isFree())
            continue;
        lines.append(describe(timer));
        running = running || timer.isRunning();
    }
    icon_.setIcon(lines.isEmpty() ? applicationIcon() : icon(running ? "timer" : "timer-paused"));
    icon_.setToolTip(lines.isEmpty() ? toQString(texts::trayIdle) : lines.join('\n'));
}

void TimerTray::buildMenu() {
    menu_.clear();
    menu_.addAction(toQString(texts::trayShow), this, &TimerTray::windowRequested);
    menu_.addAction(toQString(texts::add), this, &TimerTray::addRequested)
        ->setEnabled(control_.timers().firstFree().has_value());
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot) {
        const auto& timer = control_.timers().slot(slot);
        if (timer.isFree())
            continue;
        auto* of = menu_.addMenu(describe(timer));
        auto* pause = of->addAction(toQString(texts::pause), this, [this, slot] { control_.togglePause(slot); });
        pause->setCheckable(true);
        pause->setChecked(timer.isPaused());
        of->addAction(toQString(texts::complete), this, [this, slot] { control_.complete(slot); });
    }
}

} // namespace hourwright::desktop
