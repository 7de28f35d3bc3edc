#pragma once

#include "platform/event_queue.h"

namespace hourwright::app {

/// What the message loop asks of the frame.
class MessageHooks {
public:
    virtual ~MessageHooks() = default;

    /// Called while no message waits, with a count that begins at 0 and rises by one a call; true asks for another
    /// call before the next message.
    virtual bool onIdle(unsigned count) = 0;
    /// Offered every message before it is dispatched; true when it is dealt with.
    virtual bool preTranslateMessage(const platform::QueuedEvent& event) = 0;
};

/// The rules of the message loop: idle calls go on until the frame has nothing left to do, and begin anew after any
/// message but a paint, a tick of the system timer and a move of the mouse.
class MessageLoop : public platform::EventListener {
public:
    explicit MessageLoop(MessageHooks& hooks) : hooks_(hooks) {}

    bool preTranslate(const platform::QueuedEvent& event) override { return hooks_.preTranslateMessage(event); }
    void handled(const platform::QueuedEvent& event) override;
    [[nodiscard]] bool wantsIdle() const override { return idle_; }
    void idle() override;

private:
    MessageHooks& hooks_;
    bool idle_ = true;
    unsigned count_ = 0;
};

} // namespace hourwright::app
