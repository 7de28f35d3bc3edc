#include "platform/qt/qt_event_queue.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QThread>

namespace hourwright::platform {

namespace {

// The idle call is an event of its own, so that it may open dialogs as any other event may.
QEvent::Type idleEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

bool inOutermostLoop() {
    return QThread::currentThread()->loopLevel() == 1;
}

QueuedEvent describe(const QEvent& event) {
    switch (event.type()) {
    case QEvent::Paint:
    case QEvent::UpdateRequest:
    case QEvent::UpdateLater: return {.kind = EventKind::paint};
    case QEvent::Timer: return {.kind = EventKind::systemTimer};
    case QEvent::MouseMove:
    case QEvent::HoverMove:
    case QEvent::NonClientAreaMouseMove: return {.kind = EventKind::mouseMove};
    case QEvent::KeyPress: return {.kind = EventKind::keyPress, .key = static_cast<const QKeyEvent&>(event).key()};
    default: return {};
    }
}

} // namespace

QtEventQueue::QtEventQueue() {
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &QtEventQueue::beforeWaiting);
}

int QtEventQueue::run(EventListener& listener) {
    listener_ = &listener;
    QCoreApplication::instance()->installEventFilter(this);
    const int code = QCoreApplication::exec();
    QCoreApplication::instance()->removeEventFilter(this);
    listener_ = nullptr;
    return code;
}

void QtEventQueue::quit(int code) {
    QCoreApplication::exit(code);
}

void QtEventQueue::beforeWaiting() {
    if (listener_ == nullptr || idlePosted_ || !inOutermostLoop() || !listener_->wantsIdle())
        return;
    idlePosted_ = true;
    QCoreApplication::postEvent(this, new QEvent(idleEvent()), Qt::LowEventPriority);
}

bool QtEventQueue::event(QEvent* event) {
    if (event->type() != idleEvent())
        return QObject::event(event);
    idlePosted_ = false;
    if (listener_ != nullptr)
        listener_->idle();
    return true;
}

bool QtEventQueue::eventFilter(QObject* receiver, QEvent* event) {
    if (listener_ == nullptr || receiver == this || !inOutermostLoop())
        return false;
    const QueuedEvent described = describe(*event);
    const bool taken = listener_->preTranslate(described);
    listener_->handled(described);
    return taken;
}

} // namespace hourwright::platform
