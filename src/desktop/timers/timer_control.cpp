#include "desktop/timers/timer_control.h"

#include "app/settings_rules.h"
#include "billing/entry_draft.h"
#include "billing/timer_completion.h"
#include "exchange/note_document.h"
#include "platform/notification_leds.h"
#include "store/save.h"

#include <QTimer>

namespace hourwright::desktop {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds vibration = 100ms;
constexpr qint64 journalEvery = 10'000; // milliseconds

std::vector<std::byte> noteBytes(std::u16string_view text) {
    return exchange::writeNote(exchange::fromPlainText(text));
}

exchange::ListedTimer listedTimer(std::size_t slot, const billing::EntryTimer& timer) {
    return {.slot = static_cast<std::uint8_t>(slot),
            .paused = timer.isPaused(),
            .start = platform::toFileTime(timer.start()).value_or(platform::FileTime{}),
            .duration = timer.duration(),
            .breakTime = timer.breakTime(),
            .names = timer.names(),
            .note = timer.note()};
}

} // namespace

TimerControl::TimerControl(Workspace& workspace, billing::TimerSet& timers, platform::NotificationLeds& leds,
                           platform::Registry& journal)
    : workspace_(workspace), timers_(timers), leds_(leds), journal_(journal) {
    timers_.breakOption = [this] { return workspace_.settings().breakOption; };
    timers_.redraw = [this](std::size_t slot) {
        emit ticked(slot);
        afterTick();
    };
    timers_.changed = [this] {
        writeJournal();
        emit changed();
    };
    timers_.gapFound = [this](const billing::TimerGap& gap) {
        if (const auto doubts = app::IdleWatch(timers_).gap(gap.seconds); !doubts.empty())
            emit doubted(doubts);
    };
    sinceJournal_.start();
}

TimerControl::~TimerControl() {
    timers_.redraw = nullptr;
    timers_.changed = nullptr;
    timers_.gapFound = nullptr;
    timers_.breakOption = nullptr;
}

void TimerControl::vibrate() {
    if (workspace_.settings().styleFlags.has(app::StyleFlag::vibrate))
        platform::vibrate(leds_, vibration);
}

void TimerControl::afterTick() {
    if (sinceJournal_.elapsed() >= journalEvery)
        writeJournal();
}

void TimerControl::writeJournal() {
    sinceJournal_.restart();
    journal_.write(timers_, workspace_.clock().now());
}

std::optional<std::size_t> TimerControl::add(billing::TimerNames names,
                                             const std::optional<platform::SystemTime>& start,
                                             std::optional<store::TimeEntry> source) {
    const auto slot = timers_.add(std::move(names), start, std::move(source));
    if (slot)
        vibrate();
    return slot;
}

void TimerControl::togglePause(std::size_t slot) {
    vibrate();
    timers_.togglePause(slot);
}

void TimerControl::setTimes(std::size_t slot, std::int32_t duration, std::int32_t breakTime) {
    timers_.slot(slot).setDuration(duration);
    timers_.slot(slot).setBreak(breakTime);
    writeJournal();
    emit changed();
}

void TimerControl::setNote(std::size_t slot, std::u16string note) {
    timers_.slot(slot).setNote(std::move(note));
}

bool TimerControl::cancel(std::size_t slot) {
    if (timers_.slot(slot).isFree() || !workspace_.messages().ask(resources::StringId::cancelTimer))
        return false;
    timers_.reset(slot);
    return true;
}

store::TimeEntry TimerControl::entryOf(const billing::EntryTimer& timer) const {
    const app::AppSettings& settings = workspace_.settings();
    return billing::completedEntry(timer, {.rules = app::timeRules(settings),
                                           .breakOption = settings.breakOption,
                                           .defaults = app::newEntryDefaults(settings),
                                           .encodeNote = noteBytes});
}

void TimerControl::edit(const store::TimeEntry& entry, const std::optional<app::KeptTimer>& timer,
                        std::function<void()> closed) {
    if (openEditor)
        openEditor(entry, timer, std::move(closed));
}

void TimerControl::freeCompleted(const app::KeptTimer& timer) {
    if (timer.slot < billing::TimerSet::slotCount && !timers_.slot(timer.slot).isFree() &&
        platform::toFileTime(timers_.slot(timer.slot).start()) == timer.start)
        timers_.reset(timer.slot);
}

void TimerControl::complete(std::size_t slot) {
    const billing::EntryTimer& timer = timers_.slot(slot);
    if (timer.isFree())
        return;
    if (billing::noteIsTooLarge(timer))
        workspace_.messages().showCheck(resources::StringId::timerNoteTooLarge);
    const app::KeptTimer completed{slot, platform::toFileTime(timer.start()).value_or(platform::FileTime{})};
    edit(entryOf(timer), completed, [this, slot] { timers_.reset(slot); });
}

void TimerControl::settle(const app::DoubtfulTime& doubt, app::DoubtAnswer answer) {
    billing::EntryTimer& timer = timers_.slot(doubt.slot);
    if (!timer.isRunning() || answer == app::DoubtAnswer::keep)
        return;
    if (answer == app::DoubtAnswer::trim) {
        billing::trim(timer, doubt.seconds);
    } else {
        const auto before = billing::splitAtGap(timer, doubt.seconds, workspace_.clock());
        edit(entryOf(before), {}, [] {});
    }
    writeJournal();
    emit changed();
}

// A source that was deleted meanwhile is gone; the names stay.
void TimerControl::recover(const app::RecoveredTimers& left, bool countTheTimeSince) {
    const auto now = workspace_.clock().now();
    const auto since = now > left.written ? (now.ticks - left.written.ticks) / platform::ticksPerSecond : 0;
    for (const app::RecoveredTimer& recovered : left.timers) {
        billing::EntryTimer& timer = timers_.slot(recovered.slot);
        if (!timer.isFree())
            continue;
        timer = recovered.timer;
        auto& entries = workspace_.stores().entries();
        store::TimeEntry source;
        if (recovered.source != store::RecordId::none &&
            entries.seek(platform::Seek::toId(recovered.source)) != store::RecordId::none &&
            store::readTimeEntry(entries, source) == store::ReadResult::ok)
            timer.setSource(std::move(source));
        if (countTheTimeSince)
            timer.addElapsed(static_cast<std::int64_t>(since));
    }
    writeJournal();
    emit changed();
}

exchange::TimerReply TimerControl::listed(std::optional<std::size_t> only) const {
    exchange::TimerReply reply;
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot)
        if ((!only || *only == slot) && !timers_.slot(slot).isFree())
            reply.timers.push_back(listedTimer(slot, timers_.slot(slot)));
    return reply;
}

exchange::TimerReply TimerControl::answer(const exchange::TimerRequest& request) {
    using exchange::TimerAction;
    if (request.action == TimerAction::list)
        return listed({});
    if (request.action == TimerAction::add) {
        const auto start = request.start ? platform::toSystemTime(*request.start) : std::nullopt;
        const auto slot = add(request.names, start);
        if (!slot)
            return {.outcome = exchange::TimerOutcome::noFreeSlot};
        if (request.note)
            setNote(*slot, *request.note);
        return listed(slot);
    }
    if (timers_.slot(request.slot).isFree())
        return {.outcome = exchange::TimerOutcome::slotFree};
    return answerFor(request.slot, request);
}

exchange::TimerReply TimerControl::answerFor(std::size_t slot, const exchange::TimerRequest& request) {
    using exchange::TimerAction;
    billing::EntryTimer& timer = timers_.slot(slot);
    switch (request.action) {
    case TimerAction::pause:
        if (timer.isRunning())
            togglePause(slot);
        break;
    case TimerAction::resume:
        if (timer.isPaused())
            togglePause(slot);
        break;
    case TimerAction::edit:
        if (request.note)
            setNote(slot, *request.note);
        setTimes(slot, request.duration.value_or(timer.duration()), request.breakTime.value_or(timer.breakTime()));
        break;
    case TimerAction::complete:
        if (request.save)
            return saveCompleted(slot);
        QTimer::singleShot(0, this, [this, slot] { complete(slot); });
        break;
    case TimerAction::cancel: timers_.reset(slot); break;
    case TimerAction::list:
    case TimerAction::add: break;
    }
    return listed(slot);
}

// The editor's checks apply, as if it had been opened and left with OK. Another program waits for the answer, so
// nothing is shown here.
exchange::TimerReply TimerControl::saveCompleted(std::size_t slot) {
    store::TimeEntry entry = entryOf(timers_.slot(slot));
    const auto opened = billing::draftOf(entry, workspace_.clock().localTime());
    const auto refused = [](resources::StringId message, platform::PlatformError error) {
        return exchange::TimerReply{.outcome = exchange::TimerOutcome::refused,
                                    .message = resources::number(message),
                                    .error = platform::number(error)};
    };
    if (const auto refusal = billing::applyDraft(billing::touchedOnly(opened, opened), workspace_.timeRules(), entry))
        return refused(refusal->message, refusal->error);
    entry.modified = workspace_.clock().now();
    auto& stores = workspace_.stores();
    const auto transaction = stores.objects().begin({u"Complete Timer", workspace_.clock().now()});
    if (transaction == nullptr || !store::saveTimeEntry(*transaction, stores, entry) || !transaction->commit())
        return refused(resources::StringId::error, stores.objects().lastError());
    timers_.reset(slot);
    QTimer::singleShot(0, &workspace_, &Workspace::recordsChanged);
    return {.record = static_cast<std::uint32_t>(entry.id)};
}

} // namespace hourwright::desktop
