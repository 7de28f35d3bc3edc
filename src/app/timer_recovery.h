#pragma once

#include "billing/timer_set.h"
#include "platform/file_time.h"
#include "platform/registry.h"

#include <cstddef>
#include <vector>

namespace hourwright::app {

/// A timer as it was last written down, and the slot that it ran in.
struct RecoveredTimer {
    std::size_t slot = 0;
    billing::EntryTimer timer;                      ///< without its source
    store::RecordId source = store::RecordId::none; ///< the entry that it was started from
};

/// What a program that did not end properly left behind.
struct RecoveredTimers {
    platform::FileTime written; ///< local time
    std::vector<RecoveredTimer> timers;
};

/// The journal of running timers, kept in a registry of its own in the state directory. Timers are no records: it only
/// lets the next start offer them again after a crash, and it is empty after a proper end. Failures are silent.
class TimerJournal {
public:
    /// Borrows the registry.
    explicit TimerJournal(platform::Registry& registry) : registry_(registry) {}

    /// Writes down all timers in use, at once or not at all; with none it erases the journal.
    void write(const billing::TimerSet& timers, platform::FileTime now);
    void erase();
    /// The timers that were left behind, in the order of their slots; none after a proper end. What is damaged is left
    /// out.
    [[nodiscard]] RecoveredTimers read() const;

private:
    platform::Registry& registry_;
};

} // namespace hourwright::app
