#include "desktop/timers/timer_guard.h"

#include "desktop/timers/timer_dialogs.h"

#include <QApplication>
#include <QTimer>

namespace hourwright::desktop {

namespace {

constexpr int lookEvery = 15'000; // milliseconds

} // namespace

TimerGuard::TimerGuard(TimerControl& control, platform::IdleTime& idleTime, QWidget* window)
    : QObject(window), control_(control), idleTime_(idleTime), window_(window), watch_(control.timers()),
      lastActivity_(control.workspace().clock().now()) {
    connect(&control_, &TimerControl::doubted, this, &TimerGuard::ask);
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &TimerGuard::look);
    timer->start(lookEvery);
    qApp->installEventFilter(this);
}

bool TimerGuard::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress: lastActivity_ = control_.workspace().clock().now(); break;
    default: break;
    }
    return QObject::eventFilter(object, event);
}

void TimerGuard::look() {
    if (watchesIdle_ && control_.timers().inUse() > 0)
        ask(watch_.idle(idleTime_.read()));
    const auto now = control_.workspace().clock().now();
    const auto ticks = now > lastActivity_ ? now.ticks - lastActivity_.ticks : 0;
    ask(watch_.longRunning(static_cast<std::int64_t>(ticks / platform::ticksPerSecond)));
}

void TimerGuard::ask(const std::vector<app::DoubtfulTime>& doubts) {
    waiting_.insert(waiting_.end(), doubts.begin(), doubts.end());
    if (!asking_)
        askNext();
}

void TimerGuard::askNext() {
    asking_ = false;
    while (!waiting_.empty() && !control_.timers().slot(waiting_.front().slot).isRunning())
        waiting_.pop_front();
    if (waiting_.empty())
        return;
    asking_ = true;
    const app::DoubtfulTime doubt = waiting_.front();
    waiting_.pop_front();
    auto* dialog = new DoubtDialog(doubt, control_.timers().slot(doubt.slot), window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, this, [this, dialog, doubt] {
        control_.settle(doubt, dialog->answer());
        askNext();
    });
    dialog->open();
}

void TimerGuard::offerRecovery() {
    const auto left = control_.leftBehind();
    if (left.timers.empty())
        return;
    auto* dialog = new RecoveryDialog(left, control_.workspace().locale(), window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, this, [this, dialog, left] {
        if (dialog->answer() == RecoveryAnswer::discard)
            control_.forget();
        else
            control_.recover(left, dialog->answer() == RecoveryAnswer::count);
    });
    dialog->open();
}

} // namespace hourwright::desktop
