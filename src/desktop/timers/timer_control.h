#pragma once

// The toolkit's compiler does not understand the standard library's clocks.
#ifndef Q_MOC_RUN
#include "app/drafts/kept_draft.h"
#include "app/idle_watch.h"
#include "app/timer_recovery.h"
#include "billing/timer_set.h"
#endif
#include "desktop/workspace.h"
#include "exchange/timer_messages.h"

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <optional>

namespace hourwright::platform {
class NotificationLeds;
} // namespace hourwright::platform

namespace hourwright::desktop {

/// What is done to the timers, from whichever window, the tray or another program: every action goes through here, so
/// that the vibrator, the journal and the views follow.
class TimerControl : public QObject {
    Q_OBJECT

public:
    /// Borrows all of it; the journal's registry is one of its own.
    TimerControl(Workspace& workspace, billing::TimerSet& timers, platform::NotificationLeds& leds,
                 platform::Registry& journal);
    ~TimerControl() override;

    [[nodiscard]] billing::TimerSet& timers() { return timers_; }
    [[nodiscard]] Workspace& workspace() { return workspace_; }

    /// Starts a timer in the first free slot; nothing when all four are in use.
    std::optional<std::size_t> add(billing::TimerNames names, const std::optional<platform::SystemTime>& start,
                                   std::optional<store::TimeEntry> source = {});
    void togglePause(std::size_t slot);
    void setTimes(std::size_t slot, std::int32_t duration, std::int32_t breakTime); ///< seconds
    void setNote(std::size_t slot, std::u16string note);
    /// Asks, then frees the timer. True when it was freed.
    bool cancel(std::size_t slot);
    /// Opens the editor on the entry that the timer has become; the timer is free afterwards in any case.
    void complete(std::size_t slot);
    /// Carries out what was answered to a doubt. A split opens the editor on the part before the time in doubt.
    void settle(const app::DoubtfulTime& doubt, app::DoubtAnswer answer);

    /// What a program that crashed left behind, and what to do with it.
    [[nodiscard]] app::RecoveredTimers leftBehind() const { return journal_.read(); }
    void recover(const app::RecoveredTimers& timers, bool countTheTimeSince);
    /// Writes the journal now; `forget` leaves none, as a proper end does.
    void writeJournal();
    void forget() { journal_.erase(); }

    /// Does what another program asks. `complete` without saving opens the editor after the reply.
    exchange::TimerReply answer(const exchange::TimerRequest& request);

    /// Opens the entry editor and calls back when it is closed; the timer is the one that the entry completes.
    std::function<void(const store::TimeEntry& entry, const std::optional<app::KeptTimer>& timer,
                       std::function<void()> closed)>
        openEditor;
    /// Frees the timer that a draft left behind has completed, if it was recovered.
    void freeCompleted(const app::KeptTimer& timer);

signals:
    /// Timers were added, paused, edited or freed.
    void changed();
    /// The times of a slot are to be shown anew.
    void ticked(std::size_t slot);
    /// Time of running timers is in doubt; the user is to be asked.
    void doubted(const std::vector<hourwright::app::DoubtfulTime>& doubts);

private:
    [[nodiscard]] store::TimeEntry entryOf(const billing::EntryTimer& timer) const;
    void vibrate();
    void afterTick();
    void edit(const store::TimeEntry& entry, const std::optional<app::KeptTimer>& timer, std::function<void()> closed);
    [[nodiscard]] exchange::TimerReply answerFor(std::size_t slot, const exchange::TimerRequest& request);
    [[nodiscard]] exchange::TimerReply saveCompleted(std::size_t slot);
    [[nodiscard]] exchange::TimerReply listed(std::optional<std::size_t> only) const;

    Workspace& workspace_;
    billing::TimerSet& timers_;
    platform::NotificationLeds& leds_;
    app::TimerJournal journal_;
    QElapsedTimer sinceJournal_;
};

} // namespace hourwright::desktop
