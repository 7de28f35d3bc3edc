#include "app/message_loop.h"

namespace hourwright::app {

void MessageLoop::handled(const platform::QueuedEvent& event) {
    using enum platform::EventKind;
    if (event.kind == paint || event.kind == systemTimer || event.kind == mouseMove)
        return;
    idle_ = true;
    count_ = 0;
}

void MessageLoop::idle() {
    if (idle_ && !hooks_.onIdle(count_++))
        idle_ = false;
}

} // namespace hourwright::app
