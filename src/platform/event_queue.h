#pragma once

#include <cstdint>

namespace hourwright::platform {

/// The messages that the loop tells apart. Paints, ticks and moves of the mouse leave nothing to be done afterwards.
enum class EventKind : std::uint8_t { paint, systemTimer, mouseMove, keyPress, other };

/// A message on its way to a window.
struct QueuedEvent {
    EventKind kind = EventKind::other;
    int key = 0; ///< toolkit's number, of a key press

    friend bool operator==(const QueuedEvent&, const QueuedEvent&) = default;
};

/// What is told about the messages of the user-interface thread while its queue runs.
class EventListener {
public:
    virtual ~EventListener() = default;

    /// Before a message is dispatched; true when it is dealt with and goes no further.
    virtual bool preTranslate(const QueuedEvent& event) = 0;
    /// A message was taken from the queue, dealt with or dispatched.
    virtual void handled(const QueuedEvent& event) = 0;
    /// Asked while no message waits: true when `idle` is to be called before waiting for the next one.
    [[nodiscard]] virtual bool wantsIdle() const = 0;
    virtual void idle() = 0;
};

/// The queue of the user-interface thread's messages. The loops that modal dialogs run of their own tell the listener
/// nothing.
class EventQueue {
public:
    virtual ~EventQueue() = default;

    /// Takes and dispatches messages until `quit`, whose code it returns; waits while there are none.
    virtual int run(EventListener& listener) = 0;
    virtual void quit(int code) = 0;
};

} // namespace hourwright::platform
