#pragma once

#include "platform/event_queue.h"

#include <QObject>

namespace hourwright::platform {

/// The toolkit's event loop. The toolkit looks for shortcuts itself, after the listener was asked.
class QtEventQueue : public QObject, public EventQueue {
public:
    QtEventQueue();

    int run(EventListener& listener) override;
    void quit(int code) override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void beforeWaiting();

    EventListener* listener_ = nullptr;
    bool idlePosted_ = false;
};

} // namespace hourwright::platform
